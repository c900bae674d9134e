/// The picture: what the output is scaled to and how it looks, the EDIDs and timings of the inputs.
#pragma once

#include "command/family.h"
#include "settings/word_setting.h"

inline constexpr char scalerModeLeaf[] = R"({"video":{"vidProcess":{"scaler":{"scalerMode":%s}}}})";

/// The scaler gate: true while the output runs through the scaler, when picture adjustments make sense; false also when
/// the setting cannot be read.
bool readScalerModeStatus();

/// "letter box" is confirmed as "follow" (oddity 10).
inline constexpr WordReplies letterBoxReplies{.confirmed = "follow"};
inline constexpr Word aspectWords[] = {{"fill"}, {"follow"}, {.typed = "letter box", .replies = &letterBoxReplies}};

/// Stored by name, typed and shown by number.
inline constexpr Word preferredTimings[] = {
    {"0", "Native"},   {"1", "1280x800"},  {"2", "1920x1080"},  {"3", "1024x768"},
    {"4", "1280x720"}, {"5", "1920x1200"}, {"6", "1366x768"},   {"7", "800x600"},
    {"8", "1600x900"}, {"9", "2560x1440"}, {"10", "3840x2160"}, {"11", "1440x900"},
};
inline constexpr WordRules shownByNumber{.status = WordStatus::asTyped};

/// " (Default)" is part of the stored name.
inline constexpr Word outputResolutions[] = {
    {"0", "1024x768p60"},
    {"1", "1280x720p50"},
    {"2", "1280x720p60"},
    {"3", "1280x768p60"},
    {"4", "1280x800p60"},
    {"5", "1360x768p60"},
    {"6", "1600x1200p60"},
    {"7", "1920x1080p24"},
    {"8", "1920x1080p25"},
    {"9", "1920x1080p50"},
    {"10", "1920x1080p60 (Default)"},
    {"11", "1920x1200p60"},
    {"12", "2048x1080p60"},
    {"13", "3840x2160p24"},
    {"14", "3840x2160p25"},
    {"15", "3840x2160p30"},
    {"16", "3840x2160p50"},
    {"17", "3840x2160p60"},
    {"18", "4096x2160p24"},
    {"19", "4096x2160p25"},
    {"20", "4096x2160p30"},
    {"21", "4096x2160p50"},
    {"22", "4096x2160p60"},
};

/// VidOutRes 0..22 | sta | list.
void setOutputResolution(const Command& command);

inline constexpr Family outputResolution{.action = setOutputResolution,
                                         .printer = printWord,
                                         .kind = LeafKind::text,
                                         .words = outputResolutions,
                                         .gate = readScalerModeStatus};

/// PrefTimg list: shows the numbers and names of the preferred timings; takes no argument.
void listPreferredTimings(const Command& command);

/// PictureRst: flips the counter that the video daemon watches, so that every reset is a change; takes no argument.
void resetPicture(const Command& command);

/// The row's name alone.
void printName(const Change& change);

inline constexpr Family pictureReset{
    .action = resetPicture, .printer = printName, .kind = LeafKind::number, .gate = readScalerModeStatus};

/// EDIDOut1 mem1: copies the EDID of the output into the first memory.
void copyOutputEdid(const Command& command);

/// "name mem1" to "name mem8" for 1 to 8.
void printEdidMemory(const Change& change);

inline constexpr Family edidCopy{.action = copyOutputEdid, .printer = printEdidMemory, .kind = LeafKind::number};
