/// What SQLite writes into its files, as the operating system gets it.
#pragma once

#include <atomic>
#include <string>
#include <sys/types.h>
#include <vector>

/// One call that changes a file or makes it durable.
struct FileWrite {
    enum class Kind { data, length, sync };

    Kind kind;
    std::string path;
    off_t offset = 0;  ///< of the data; for a length the length
    std::string bytes = {};
};

/// Keeps the writes of this process while it lives; one at a time.
class WriteRecording {
  public:
    WriteRecording();
    WriteRecording(const WriteRecording&) = delete;
    WriteRecording& operator=(const WriteRecording&) = delete;
    ~WriteRecording();

    const std::vector<FileWrite>& writes() const { return writes_; }

  private:
    std::vector<FileWrite> writes_;
};

/// Fails every write that is recorded.
extern bool isDiskFull;

/// How often fdatasync() was called in this process.
extern std::atomic<int> syncs;
