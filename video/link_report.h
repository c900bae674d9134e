/// The link quality that the HDBaseT chips at both ends report as status texts of 73 characters.
#pragma once

#include "platform/json_token.h"

/// Decodes both status texts and prints what the selector names: "all", "allhex", "maxerr", "mse", "hpd", "5vstat",
/// "devtype", "tmdsclk", "ber", "retr" or "cablelen"; "update" writes the values to the status store instead, any other
/// selector does nothing. A text of another length or without its marker ("TX:", "RX:") reads as 0 throughout.
void linkReport(const char* selector, const char* transmitterText, const char* receiverText);

/// When a change of the video status holds an answer of the link monitor, prints or stores the report that was
/// requested. `token` is the changed document and stays the caller's.
void answerLinkRequest(json_token* token);
