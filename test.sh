#!/bin/sh
# Installs what is missing, builds everything and runs the tests.
set -eu
cd "$(dirname "$0")"

if [ "${1-}" = --help ]; then
    cat <<'END'
usage: ./test.sh [PRESET] [CTEST-ARGUMENT...]

Builds and runs every test; PRESET is dev (the default), asan (address, leak and
undefined-behaviour sanitizers) or tsan (thread sanitizer). The arguments after it
go to ctest, for example
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

tools/install-packages --tests
cmake --preset "$preset"
cmake --build --preset "$preset"
exec ctest --preset "$preset" "$@"
