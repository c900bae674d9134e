/// The write path of a stored setting: write, and either announce or leave the confirmation to the caller.
#pragma once

#include "command/command.h"
#include "command/log.h"
#include "settings/leaf.h"

/// The setting that decides who shows a change: every console, or only the one that made it.
inline constexpr char broadcastLeaf[] = R"({"system":{"broadcast":%s}})";

/// Asks the settings store; off where it cannot be read.
inline bool isBroadcastOn() { return readBoolean(broadcastLeaf).value_or(0) == 1; }

/// Publishes `document` as the change event of its branch ("audioUserConfigChanged" for {"audio":...}). A failure goes
/// to standard error as `failureText`, or where that is null as "publishEvent(<event> SYSTEM_CMD_REQ_DEFAULT!)".
void publishChange(const Document& document, const char* failureText = nullptr);

/// Reports a refused write as perror("user_config_update") instead of in the log.
void perrorWriteFailure();

/// What differs from the usual when a row's value is written.
struct WriteRules {
    void (*reportWriteFailure)() = logWriteFailure;
    const char* publishFailureText = nullptr;  ///< null: the branch's own
};

/// Writes `document`. The store raises no event for a value that it holds already, so an `unchanged` value is
/// announced here when broadcast is on; a changed one is announced by the store.
/// Returns true when the caller is to confirm: the write succeeded and broadcast is off.
bool writeSetting(const Command& command, const Document& document, bool unchanged, const WriteRules& rules = {});

/// The same for the row's own leaf: reads the old value, where one that cannot be read counts as false, 0 or no text,
/// and writes the new one.
bool writeBoolean(const Command& command, bool value, const WriteRules& rules = {});
bool writeInteger(const Command& command, int value, const WriteRules& rules = {});
bool writeText(const Command& command, const char* value, const WriteRules& rules = {});

/// Writes `document` alone: true when the store took it; a document that was cut is never sent.
bool updateSettings(const Document& document);
