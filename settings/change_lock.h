/// Makes a change that depends on what is stored atomic among all consoles of the device.
#pragma once

/// While one console holds it, no other does: what is read under it is still stored when it is written. It is a lock on
/// the program's own file, which every console has open anyway; the kernel releases it when its holder dies.
/// Replies are printed after it is released, because one console must not wait until another one's client reads.
class ChangeLock {
  public:
    /// Waits for it, ten seconds at the most.
    ChangeLock();
    ChangeLock(const ChangeLock&) = delete;
    ChangeLock& operator=(const ChangeLock&) = delete;
    ~ChangeLock() { release(); }

    /// False when it could not be had in time: the command is refused.
    explicit operator bool() const { return file_ >= 0; }

    /// Leaves errno as it is.
    void release();

  private:
    int file_;
};
