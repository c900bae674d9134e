/// A mutex and a condition that clang's thread-safety analysis knows (-Wthread-safety).
#pragma once

#include <ctime>
#include <pthread.h>

#if defined(__clang__)
#define THREAD_ANNOTATION(x) __attribute__((x))
#else
#define THREAD_ANNOTATION(x)
#endif

#define GUARDED_BY(mutex) THREAD_ANNOTATION(guarded_by(mutex))
#define REQUIRES(mutex) THREAD_ANNOTATION(requires_capability(mutex))

class THREAD_ANNOTATION(capability("mutex")) Mutex {
  public:
    Mutex() = default;
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    void lock() THREAD_ANNOTATION(acquire_capability()) { pthread_mutex_lock(&mutex_); }
    void unlock() THREAD_ANNOTATION(release_capability()) { pthread_mutex_unlock(&mutex_); }

  private:
    friend class Condition;
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

/// A condition variable. Setting the clock does not change how long it waits.
class Condition {
  public:
    Condition() noexcept {
        pthread_condattr_t attributes;
        pthread_condattr_init(&attributes);
        pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
        pthread_cond_init(&condition_, &attributes);
        pthread_condattr_destroy(&attributes);
    }
    Condition(const Condition&) = delete;
    Condition& operator=(const Condition&) = delete;

    void notify() { pthread_cond_signal(&condition_); }

    /// Releases the mutex while it waits. False when the time is over.
    bool wait(Mutex& mutex, long milliseconds) REQUIRES(mutex) {
        timespec end;
        clock_gettime(CLOCK_MONOTONIC, &end);
        // Counted down instead of divided: small processors have no division.
        for (; milliseconds >= 1000; milliseconds -= 1000) ++end.tv_sec;
        end.tv_nsec += milliseconds * 1'000'000;
        if (end.tv_nsec >= 1'000'000'000) {
            end.tv_nsec -= 1'000'000'000;
            ++end.tv_sec;
        }
        return pthread_cond_timedwait(&condition_, &mutex.mutex_, &end) == 0;
    }

  private:
    pthread_cond_t condition_;
};
