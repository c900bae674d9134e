/// The walk through a paced control string: byte words between blanks, in which the comma (2c) stands for a wait of
/// five seconds.
#pragma once

#include "text/text.h"
#include "video/trigger_request.h"

struct TriggerPiece {
    FixedText<1024> words;
    int waits = 0;
    bool isFirst = true;
};

/// Calls `send` with each piece of `content` in turn, the last one even when it is empty, until one returns false.
/// A comma between two pieces makes the second wait once, each further comma once more.
template <typename Send>
void sendInPieces(const char* content, Send send) {
    TriggerPiece piece;
    for (const char* word = skipSpaces(content); *word != '\0';) {
        const std::size_t length = std::strcspn(word, " ");
        if (length != 2 || !startsWith(word, "2c")) {
            if (piece.words.size() > 0) piece.words.append(' ');
            piece.words.append(word, length);
        } else if (piece.words.size() == 0) {
            ++piece.waits;
        } else {
            if (!send(piece)) return;
            piece.words.clear();
            piece.waits = 1;
            piece.isFirst = false;
        }
        word = skipSpaces(word + length);
    }
    send(piece);
}
