/// Sends any bytes to the launcher's telnet protocol, in pieces of any size.
///
/// The first byte of an input tells the size of the pieces.

#include "fuzz/require.h"
#include "host/launcher/telnet_stream.h"

#include <cstdint>

namespace {

using host::TelnetStream;

constexpr char iac = '\xff';

struct Outcome {
    std::string typed;
    std::string replies;

    bool operator==(const Outcome&) const = default;
};

/// What comes out of `bytes` in pieces of `size`.
Outcome send(TelnetStream::Kind kind, std::string_view bytes, std::size_t size) {
    TelnetStream stream(kind);
    Outcome outcome;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
        outcome.typed += stream.decode(bytes.substr(at, size));
        outcome.replies += stream.takeReplies();
    }
    return outcome;
}

/// What a client types that knows no telnet: a NUL behind a CR pads it.
std::string typedPlainly(std::string_view bytes) {
    std::string typed;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\0' || i == 0 || bytes[i - 1] != '\r') typed += bytes[i];
    }
    return typed;
}

void check(TelnetStream::Kind kind, std::string_view bytes, std::size_t size) {
    const Outcome whole = send(kind, bytes, bytes.size() + 1);
    fuzz::require(send(kind, bytes, size) == whole, "the pieces make no difference", whole.typed);
    fuzz::require(whole.typed.find(iac) == std::string::npos, "no byte of the protocol is typed", whole.typed);
    if (bytes.find(iac) == std::string_view::npos)
        fuzz::require(whole.typed == typedPlainly(bytes), "plain bytes are typed as they are", whole.typed);
    if (kind == TelnetStream::Kind::raw) fuzz::require(whole.replies.empty(), "a raw port says nothing by itself");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(data + 1, data + size);
    for (const auto kind : {TelnetStream::Kind::negotiating, TelnetStream::Kind::raw}) check(kind, bytes, data[0] + 1U);
    return 0;
}
