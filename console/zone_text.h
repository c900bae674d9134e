/// The text of the RS232zone command: collected over all lines of one burst, then sent to the far end's serial port.
#pragma once

#include "text/fixed_text.h"

/// The command's word. The line reader handles the command; the dispatcher never sees it.
inline constexpr char zoneWord[] = "RS232zone";

class ZoneText {
  public:
    /// True from the first collected line until finish().
    bool isCollecting() const { return zoneCollecting_; }

    /// Adds a line and the byte that ended it. Of all lines together 255 bytes are kept; more than that is refused when
    /// the text is finished.
    void collect(const char* line, std::size_t length, char terminator);

    /// Collects a line in which the word stands in the wrong place: the whole text will be refused.
    void collectMisplaced(const char* line, std::size_t length, char terminator);

    /// The burst is over: sends the bracketed text, or refuses what was collected, and starts anew.
    void finish();

  private:
    std::size_t trimmedLength() const;
    void forward(std::size_t length) const;

    FixedText<256> zoneBuffer_;
    bool zoneCollecting_ = false;
    bool zoneFailed_ = false;
};
