/// Plays a scene: what happens on a device around its consoles, with pauses in between.
#pragma once

#include "host/devicectl/verb.h"

namespace host {

/// Plays the file of that name: "# remark", "== title", "$ WORDS OF DEVICECTL" whose last word takes the rest of the
/// line, "wait SECONDS", and "repeat TIMES" up to "end". A word in double quotes is read with C escapes.
int playScene(const Arguments& words);

}  // namespace host
