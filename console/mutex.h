/// A mutex that clang's thread-safety analysis knows (-Wthread-safety).
#pragma once

#include <pthread.h>

#if defined(__clang__)
#define THREAD_ANNOTATION(x) __attribute__((x))
#else
#define THREAD_ANNOTATION(x)
#endif

#define GUARDED_BY(mutex) THREAD_ANNOTATION(guarded_by(mutex))

class THREAD_ANNOTATION(capability("mutex")) Mutex {
  public:
    Mutex() = default;
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    void lock() THREAD_ANNOTATION(acquire_capability()) { pthread_mutex_lock(&mutex_); }
    void unlock() THREAD_ANNOTATION(release_capability()) { pthread_mutex_unlock(&mutex_); }

  private:
    pthread_mutex_t mutex_ = PTHREAD_MUTEX_INITIALIZER;
};

/// Holds a mutex for a scope.
class THREAD_ANNOTATION(scoped_lockable) MutexLock {
  public:
    explicit MutexLock(Mutex& mutex) THREAD_ANNOTATION(acquire_capability(mutex)) : mutex_(mutex) { mutex.lock(); }
    ~MutexLock() THREAD_ANNOTATION(release_capability()) { mutex_.unlock(); }
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

  private:
    Mutex& mutex_;
};
