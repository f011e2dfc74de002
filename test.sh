#!/bin/sh
# Installs what is missing, builds everything and runs the tests.
set -eu
cd "$(dirname "$0")"

if [ "${1-}" = --help ]; then
    cat <<'END'
usage: ./test.sh [PRESET] [CTEST-ARGUMENT...]

Builds and runs every test; PRESET is dev (the default), asan (clang with the address,
leak and undefined-behaviour sanitizers) or tsan (gcc with the thread sanitizer, and
only the tests of what has threads). Further arguments go to ctest, for example
  ./test.sh dev -R golden.block_output
  ./test.sh tsan --rerun-failed
END
    exit 0
fi

preset=dev
case "${1-}" in
    dev | asan | tsan)
        preset=$1
        shift
        ;;
esac

if [ "$preset" = asan ]; then
    tools/install-packages --clang
else
    tools/install-packages --tests
fi
cmake --preset "$preset"
cmake --build --preset "$preset"
exec ctest --preset "$preset" "$@"
