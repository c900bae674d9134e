/// Shows on this console what happens on the device: changed settings as the command lines that would have made them,
/// texts from other daemons, resets and reboots.
#pragma once

/// Thread body: listens to the event bus until it fails. The callbacks run on this thread and print at once, between
/// whatever the main thread prints.
void* eventListenerThread(void* sessionContext);

/// Waits until this console hears what it changes itself, which in its first moment it does not; for a fifth of a
/// second at the most.
void awaitListener();
