/// Collects typed bytes into lines and hands each finished line on.
#pragma once

#include "console/session.h"
#include "console/zone_text.h"
#include "text/fixed_text.h"

class LineReader {
  public:
    /// Every line end restarts the session's idle clock. The session outlives the reader.
    explicit LineReader(SessionContext& session) : session_(session) {}

    /// Echoes the byte and takes it: a carriage return or a line feed ends the line, any other byte is part of it. A
    /// line keeps its first 4095 bytes.
    void take(char byte);

    /// Nothing was typed for a while, which ends the text of an RS232zone command.
    void onQuiet();

  private:
    void endLine(char terminator);
    void processLine(char terminator);

    SessionContext& session_;
    FixedText<4096> line_;
    ZoneText zone_;
};

/// Reads standard input until the session ends.
void runLineReader(SessionContext& session);
