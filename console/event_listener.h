/// Shows on this console what happens on the device: changed settings as the command lines that would have made them,
/// texts from other daemons, resets and reboots.
#pragma once

/// Thread body: listens to the event bus until it fails. The callbacks run on this thread and print at once, between
/// whatever the main thread prints.
void* eventListenerThread(void* sessionContext);

/// To be called before that thread is started: from then on awaitListener() waits for it.
void expectListener();

/// Waits until the thread has subscribed to all events, or failed to. A program that types as soon as it is connected
/// would miss the confirmation of its first change otherwise, which comes as an event. A bus that says nothing is
/// waited for only once, and for a second.
void awaitListener();
