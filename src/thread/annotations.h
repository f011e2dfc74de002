#pragma once

/// The thread-safety annotations of Clang. A build with Clang fails when code touches a
/// guarded member without its lock, or takes a lock that it holds already; the other
/// compilers see nothing of them. docs/threads.md has the locks.
#ifdef __clang__
#define ZOLT_ANNOTATION(text) __attribute__((text))
#else
#define ZOLT_ANNOTATION(text)
#endif

/// Marks a class whose objects are locks.
#define ZOLT_LOCK ZOLT_ANNOTATION(capability("lock"))
/// Marks a class whose objects hold a lock for a scope.
#define ZOLT_LOCK_HOLDER ZOLT_ANNOTATION(scoped_lockable)

/// Marks a member that only a holder of the lock may touch.
#define ZOLT_GUARDED_BY(lock) ZOLT_ANNOTATION(guarded_by(lock))
/// Marks a pointer to data that only a holder of the lock may touch.
#define ZOLT_POINTS_TO_GUARDED_BY(lock) ZOLT_ANNOTATION(pt_guarded_by(lock))

/// Marks a function whose caller holds the lock.
#define ZOLT_REQUIRES(lock) ZOLT_ANNOTATION(requires_capability(lock))
/// Marks a function whose caller must not hold the lock, because the function takes it.
#define ZOLT_EXCLUDES(lock) ZOLT_ANNOTATION(locks_excluded(lock))

/// Marks a function that takes the lock, or its own object if there is no argument.
#define ZOLT_ACQUIRES(...) ZOLT_ANNOTATION(acquire_capability(__VA_ARGS__))
/// Marks a function that gives the lock, or its own object, back.
#define ZOLT_RELEASES(...) ZOLT_ANNOTATION(release_capability(__VA_ARGS__))

/// Marks a function that the compiler cannot follow; a comment gives the reason.
#define ZOLT_UNCHECKED ZOLT_ANNOTATION(no_thread_safety_analysis)
