/// The folders and links of a device root.
#pragma once

#include "host/supervisor/programs.h"

namespace host {

/// Makes the current device root where it is missing, open to nobody else. False, with the reason on standard error,
/// also for a folder that holds something else.
bool makeRoot();

/// Makes the folders of the root and the links to `programs`, and begins the run's logs. False with the reason on
/// standard error.
bool layOutRoot(const Programs& programs);

}  // namespace host
