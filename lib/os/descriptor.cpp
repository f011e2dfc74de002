#include "lib/os/descriptor.h"

#include <cerrno>
#include <system_error>

namespace zolt_os {

Descriptor checked(int number, const char* what) {
    if (number < 0) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    return Descriptor(number);
}

}  // namespace zolt_os
