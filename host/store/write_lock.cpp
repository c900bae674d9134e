#include "host/store/write_lock.h"

#include "host/base/time_span.h"

#include <cerrno>

#if defined(__SANITIZE_THREAD__)
#include <sanitizer/tsan_interface.h>
#endif

namespace host {
namespace {

/// The thread sanitizer follows a mutex to its heir only where no time limit is given.
void tellSanitizer([[maybe_unused]] pthread_mutex_t* inherited) {
#if defined(__SANITIZE_THREAD__)
    __tsan_mutex_pre_lock(inherited, 0);
    __tsan_mutex_post_lock(inherited, 0, 0);
#endif
}

}  // namespace

WriteLock::WriteLock() {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
    pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    // With priority inheritance the kernel hands the lock to the one who has waited longest, instead of letting all
    // of them run for it.
    pthread_mutexattr_setprotocol(&attributes, PTHREAD_PRIO_INHERIT);
    pthread_mutex_init(&mutex_, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

int WriteLock::waitForTurn(std::chrono::milliseconds limit) {
    for (;;) {
        const std::uint32_t turnsBefore = turns_;
        const timespec end = toTimespec(timeOfDay() + limit);
        const int result = pthread_mutex_timedlock(&mutex_, &end);
        if (result != ETIMEDOUT || turns_ == turnsBefore) return result;
    }
}

WriteLock::Outcome WriteLock::acquire(std::chrono::milliseconds limit) {
    const int result = waitForTurn(limit);
    if (result != 0 && result != EOWNERDEAD) {
        errno = result;
        return Outcome::failed;
    }
    ++turns_;
    if (result == 0) return Outcome::acquired;
    pthread_mutex_consistent(&mutex_);
    tellSanitizer(&mutex_);
    return Outcome::inherited;
}

void WriteLock::release() { pthread_mutex_unlock(&mutex_); }

}  // namespace host
