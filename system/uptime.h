/// How long the device has been up.
#pragma once

#include "text/fixed_text.h"

/// `seconds`, of which the fraction is dropped, as "dd HH:mm:ss". A span that no clock can show counts as none.
FixedText<64> formatUptime(double seconds);
