/// The one writer of a store, among all threads of all processes of the device.
#pragma once

#include <chrono>
#include <pthread.h>

namespace host {

/// Lives in memory that all processes share. Writers get it in the order in which they asked; the next one gets it too
/// when its holder dies.
class WriteLock {
  public:
    enum class Outcome {
        acquired,
        inherited,  ///< acquired from a holder that died in the middle of its work
        failed,     ///< errno says why: ETIMEDOUT when the holder does not come to an end
    };

    WriteLock();
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;

    Outcome acquire(std::chrono::milliseconds limit);
    void release();

  private:
    pthread_mutex_t mutex_;
};

}  // namespace host
