#include "panel/event_streams.h"

#include "host/base/time_span.h"
#include "host/launcher/peer.h"

#include <algorithm>
#include <event2/buffer.h>
#include <event2/bufferevent.h>
#include <event2/event.h>
#include <event2/http.h>

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t mostStreams = 100;
constexpr std::size_t mostWaiting = std::size_t{1024} * 1024;
constexpr auto readerPatience = 10s;
constexpr auto silence = 15s;

/// A client sends nothing more after its request.
constexpr std::size_t mostInput = 1024;

std::string framed(std::string_view text) { return std::string("data: ").append(text).append("\n\n"); }

/// Reading goes on, without a time-out, so that the end of a client is noticed while there is nothing to send.
void prepareConnection(evhttp_connection* connection) {
    bufferevent* channel = evhttp_connection_get_bufferevent(connection);
    host::preparePeerSocket(bufferevent_getfd(channel));
    const timeval patience = host::toTimeval(readerPatience);
    bufferevent_set_timeouts(channel, nullptr, &patience);
    bufferevent_setwatermark(channel, EV_READ, 0, mostInput);
}

}  // namespace

EventStreams::EventStreams(host::EventLoop& loop, std::function<void(Id)> onOpen, std::function<void(Id)> onClose)
    : onOpen_(std::move(onOpen)), onClose_(std::move(onClose)), keepAlive_(loop, [this] { sendKeepAlive(); }) {
    keepAlive_.start(silence);
}

EventStreams::~EventStreams() {
    for (const Stream& stream : streams_) evhttp_connection_set_closecb(stream.connection, nullptr, nullptr);
}

void EventStreams::open(const Request& request) {
    if (streams_.size() >= mostStreams) return request.reply(503, "Too many pages are open.\n");
    evhttp_connection* connection = evhttp_request_get_connection(request.raw);
    Stream& stream = streams_.emplace_back(Stream{this, ++lastId_, request.raw, connection});
    evhttp_connection_set_closecb(connection, onClosed, &stream);
    evhttp_add_header(evhttp_request_get_output_headers(request.raw), "Content-Type", "text/event-stream");
    evhttp_send_reply_start(request.raw, 200, nullptr);
    prepareConnection(connection);
    onOpen_(stream.id);
}

void EventStreams::send(std::string_view text) { sendRaw(framed(text)); }

void EventStreams::sendTo(Id id, std::string_view text) {
    for (const Stream& stream : streams_)
        if (stream.id == id) write(stream, framed(text));
    dropSlow();
}

bool EventStreams::holds(Id id) const {
    return std::any_of(streams_.begin(), streams_.end(), [id](const Stream& stream) { return stream.id == id; });
}

/// The library frees the request of a connection that is freed, but not of one that has failed.
void EventStreams::onClosed(evhttp_connection* /*connection*/, void* closed) {
    const Stream stream = *static_cast<Stream*>(closed);
    if (evhttp_request_get_connection(stream.request) == nullptr) evhttp_request_free(stream.request);
    stream.streams->streams_.remove_if([&stream](const Stream& other) { return other.id == stream.id; });
    stream.streams->onClose_(stream.id);
}

void EventStreams::sendRaw(std::string_view bytes) {
    for (const Stream& stream : streams_) write(stream, bytes);
    dropSlow();
}

void EventStreams::write(const Stream& stream, std::string_view bytes) {
    evbuffer* chunk = evbuffer_new();
    evbuffer_add(chunk, bytes.data(), bytes.size());
    evhttp_send_reply_chunk(stream.request, chunk);
    evbuffer_free(chunk);
}

void EventStreams::dropSlow() {
    for (auto next = streams_.begin(); next != streams_.end();) {
        evhttp_connection* connection = (next++)->connection;
        const evbuffer* output = bufferevent_get_output(evhttp_connection_get_bufferevent(connection));
        if (evbuffer_get_length(output) > mostWaiting) evhttp_connection_free(connection);
    }
}

/// A client that has vanished is noticed when it is sent something.
void EventStreams::sendKeepAlive() {
    sendRaw(":\n\n");
    keepAlive_.start(silence);
}

}  // namespace panel
