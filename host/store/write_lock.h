/// The one writer of a store, among all threads of all processes of the device.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <pthread.h>

namespace host {

/// Lives in memory that all processes share. Writers get it in the order in which they asked; the next one gets it too
/// when its holder dies.
class WriteLock {
  public:
    enum class Outcome {
        acquired,
        inherited,  ///< acquired from a holder that died in the middle of its work
        failed,     ///< errno says why: ETIMEDOUT when a holder does not come to an end
    };

    WriteLock();
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;

    /// Waits for as long as the writers before it take turns, however many they are, and gives up when `limit` passes
    /// in which nobody's turn began. Who waits for longer than `limit` asks again, behind those who have asked since.
    Outcome acquire(std::chrono::milliseconds limit);
    void release();

  private:
    /// 0, or pthread_mutex_timedlock()'s error.
    int waitForTurn(std::chrono::milliseconds limit);

    pthread_mutex_t mutex_;
    std::atomic<std::uint32_t> turns_ = 0;  ///< that have begun
};

}  // namespace host
