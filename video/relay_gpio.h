#pragma once

/// Drives the relay's line through the kernel's GPIO files below `folder`: "on" sets it, "off" clears it. Any other
/// word makes the line an output and leaves its level; an empty or missing one does nothing.
/// Ends the process with status 1, after a line on standard output, when one of the files cannot be opened.
void switchRelay(const char* state, const char* folder = "/sys/class/gpio");
