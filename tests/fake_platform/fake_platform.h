/// A device in memory: all interfaces of platform/ on plain containers, steered and looked at by a test.
///
/// The stores keep JSON trees and announce changes as the real ones do, the bus loops everything back to whoever
/// subscribed, calls and shell lines are noted and reach nobody. Any function can be made to fail. All functions may be
/// called from any thread.
#pragma once

#include <cerrno>
#include <string>
#include <vector>

namespace fake_platform {

using Lines = std::vector<std::string>;

/// Back to an empty device: no settings, no status, nothing noted, nothing failing, logging off. Open buses stay and
/// lose what was under way; offered services are forgotten, their handles stay valid and silent.
void reset();

/// Merges a document into the store without announcing it.
void setConfig(const std::string& document);
void setStatus(const std::string& document);

/// What the store holds where the query document leads, as plain JSON text; empty where there is nothing.
std::string config(const std::string& query = "{}");
std::string status(const std::string& query = "{}");

void setFactoryData(const std::string& key, const std::string& text);

/// The reply to every call of the method from now on. Without one a call of a daemon succeeds and answers nothing.
void setReply(const std::string& service, const std::string& method, const std::string& text);

/// The level up to which __printLog lines are wanted.
void setLogLevel(int level);

inline constexpr int always = -1;

/// Makes the next `times` calls of a platform function fail with errno `error`: fail("user_config_update"). Before them
/// come `successes` good ones.
void fail(const std::string& function, int times = always, int error = EIO, int successes = 0);

/// Everything noted since reset(), oldest first:
Lines published();   ///< "EVENT PAYLOAD" for each eventbus_publish()
Lines calls();       ///< "SERVICE METHOD TEXT" for each LPC call
Lines shellLines();  ///< what went to lsystem() or system()
Lines logLines();    ///< "LEVEL TEXT"
Lines waits();       ///< microseconds of each usleep() of a tenth of a second or more, which nobody waits for
Lines updates();     ///< each document that a store took

/// Sends an event to all that subscribed to it and returns when their callbacks have run on the threads that serve the
/// buses. False when they did not within ten seconds.
bool deliver(const std::string& event, const std::string& payload);

/// Waits until somebody subscribed to the event. False after ten seconds.
bool awaitSubscription(const std::string& event);

}  // namespace fake_platform
