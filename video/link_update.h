#pragma once

#include "video/link_status.h"

/// Writes the decoded values of both ends into the status store, one document at a time. A refused one goes to standard
/// error and keeps none of the others back. Which values go out depends on the devices known, and not in the same
/// way for both sides (oddity 36).
void updateLinkStatus(const LinkEnds& link);
