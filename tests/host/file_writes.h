/// What becomes of what SQLite writes into its files.
#pragma once

#include <atomic>
#include <map>
#include <string>
#include <vector>

/// While there is one, every write of this process finds the disk full.
class FullDisk {
  public:
    FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk();
};

/// How often fdatasync() was called in this process.
extern std::atomic<int> syncs;

/// What is left of the files, by their paths, when the power fails behind a sync. Each sync adds one, where there is a
/// first.
using Remains = std::map<std::string, std::string>;
extern std::vector<Remains>* remains;
