/// Settings that store a name out of a fixed list, which the operator types and sees as its index.
#pragma once

#include "command/command.h"
#include "settings/write_path.h"

#include <array>
#include <optional>
#include <span>

inline constexpr std::array preferredTimings{
    "Native",   "1280x800", "1920x1080", "1024x768",  "1280x720",  "1920x1200",
    "1366x768", "800x600",  "1600x900",  "2560x1440", "3840x2160", "1440x900",
};

/// " (Default)" is part of the stored name.
inline constexpr std::array outputResolutions{
    "1024x768p60",
    "1280x720p50",
    "1280x720p60",
    "1280x768p60",
    "1280x800p60",
    "1360x768p60",
    "1600x1200p60",
    "1920x1080p24",
    "1920x1080p25",
    "1920x1080p50",
    "1920x1080p60 (Default)",
    "1920x1200p60",
    "2048x1080p60",
    "3840x2160p24",
    "3840x2160p25",
    "3840x2160p30",
    "3840x2160p50",
    "3840x2160p60",
    "4096x2160p24",
    "4096x2160p25",
    "4096x2160p30",
    "4096x2160p50",
    "4096x2160p60",
};

struct NameList {
    std::span<const char* const> names;
    Gate gate = nullptr;            ///< asked before a change and before the list is shown
    void (*printList)() = nullptr;  ///< answers "list"; null: that is no word of the row
};

/// The index of a name, nothing for a name that is not in the list.
std::optional<int> indexOf(const char* name, const NameList& list);

/// An index, written without leading zeros, or "sta", which fails for a stored name that is not in the list.
void setName(const Command& command, const NameList& list);

/// "row index"; nothing for a name that is not in the list.
void printNameIndex(const char* rowName, const ChangedValue& value, const NameList& list);

template <const NameList& list>
void setName(const Command& command) {
    setName(command, list);
}

template <const NameList& list>
void printNameIndex(const char* rowName, const ChangedValue& value) {
    printNameIndex(rowName, value, list);
}
