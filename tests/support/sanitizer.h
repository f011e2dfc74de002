#pragma once

/// The sanitizers that this build has. GCC says so by macros, Clang by its features.
#if !defined(__has_feature)
#define ZOLT_HAS_FEATURE(name) 0
#else
#define ZOLT_HAS_FEATURE(name) __has_feature(name)
#endif

namespace support {

#if defined(__SANITIZE_ADDRESS__) || ZOLT_HAS_FEATURE(address_sanitizer)
inline constexpr bool kAddressSanitizer = true;
#else
inline constexpr bool kAddressSanitizer = false;
#endif

#if defined(__SANITIZE_THREAD__) || ZOLT_HAS_FEATURE(thread_sanitizer)
inline constexpr bool kThreadSanitizer = true;
#else
inline constexpr bool kThreadSanitizer = false;
#endif

/// Both reserve address space, keep freed memory and find leaks themselves.
inline constexpr bool kMemorySanitized = kAddressSanitizer || kThreadSanitizer;

}  // namespace support

#undef ZOLT_HAS_FEATURE
