#pragma once

#include "video/link_status.h"

/// Writes the decoded values of both ends into the status store, one document at a time. A refused one is reported on
/// standard error, and the others are written all the same. Which values are written depends on the two devices, and
/// differs between the sides (oddity 36).
void updateLinkStatus(const LinkEnds& link);
