/// Names of events that more than one part of the program publishes or subscribes to.
#pragma once

/// A text that every console shows as it is.
inline constexpr char commandFeedbackEvent[] = "CommandFeedback";

/// What is asked of the upgrade service, and what it reports.
inline constexpr char upgradeEvent[] = "UpgradeSlaveVersionQuery";
