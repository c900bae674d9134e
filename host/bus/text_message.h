/// The one payload of every message on the bus: a text of any bytes but NUL.
///
/// It travels as an array of bytes that ends in the text's NUL, so that a receiver uses it in place.
#pragma once

#include <systemd/sd-bus.h>

namespace host {

/// Appends `text`. A negative result names the error as sd-bus does; -EMSGSIZE for one that is too long.
int appendText(sd_bus_message* message, const char* text);

/// The text of `message`, living as long as the message; null for a message of another form.
const char* readText(sd_bus_message* message);

}  // namespace host
