#include "panel/http_server.h"

#include "panel/origin.h"

#include <event2/buffer.h>
#include <event2/event.h>
#include <event2/http.h>
#include <event2/keyvalq_struct.h>
#include <event2/listener.h>
#include <new>

namespace panel {
namespace {

constexpr int idleSeconds = 30;
constexpr int mostHeaderBytes = 8 * 1024;
constexpr int mostBodyBytes = 64 * 1024;

/// Of every answer. Nothing but the panel's own files runs in its page, nobody frames it, and no other page reads it.
constexpr std::pair<const char*, const char*> protection[] = {
    {"Content-Security-Policy",
     "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; base-uri 'none'; "
     "form-action 'none'; frame-ancestors 'none'"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"X-Content-Type-Options", "nosniff"},
    {"Referrer-Policy", "no-referrer"},
    {"Cache-Control", "no-store"}};

std::string bodyOf(evhttp_request* request) {
    evbuffer* input = evhttp_request_get_input_buffer(request);
    std::string body(evbuffer_get_length(input), '\0');
    evbuffer_remove(input, body.data(), body.size());
    return body;
}

std::string orEmpty(const char* text) { return text != nullptr ? text : ""; }

Request read(evhttp_request* raw) {
    const evhttp_uri* uri = evhttp_request_get_evhttp_uri(raw);
    return {raw, evhttp_request_get_command(raw) == EVHTTP_REQ_POST, orEmpty(evhttp_uri_get_path(uri)),
            orEmpty(evhttp_uri_get_query(uri)), bodyOf(raw)};
}

/// The waiting connection keeps the socket readable: without a pause the loop would spin.
void pauseAccepting(evconnlistener* listener, void* /*context*/) {
    constexpr timeval pause = {0, 100'000};
    const auto resume = [](evutil_socket_t, short, void* paused) {
        evconnlistener_enable(static_cast<evconnlistener*>(paused));
    };
    evconnlistener_disable(listener);
    event_base_once(evconnlistener_get_base(listener), -1, EV_TIMEOUT, resume, listener, &pause);
}

}  // namespace

void Request::reply(int status, std::string_view text, const char* type) const {
    evhttp_add_header(evhttp_request_get_output_headers(raw), "Content-Type", type);
    evbuffer* output = evhttp_request_get_output_buffer(raw);
    evbuffer_add(output, text.data(), text.size());
    evhttp_send_reply(raw, status, nullptr, output);
}

HttpServer::HttpServer(host::EventLoop& loop, Handler handler)
    : server_(evhttp_new(loop.base()), evhttp_free), handler_(std::move(handler)) {
    if (server_ == nullptr) throw std::bad_alloc();
    evhttp_set_timeout(server_.get(), idleSeconds);
    evhttp_set_max_headers_size(server_.get(), mostHeaderBytes);
    evhttp_set_max_body_size(server_.get(), mostBodyBytes);
    evhttp_set_allowed_methods(server_.get(), EVHTTP_REQ_GET | EVHTTP_REQ_POST);
    const auto onRequest = [](evhttp_request* request, void* self) { static_cast<HttpServer*>(self)->judge(request); };
    evhttp_set_gencb(server_.get(), onRequest, this);
}

bool HttpServer::listen(const std::string& address, int port) {
    evhttp_bound_socket* socket =
        evhttp_bind_socket_with_handle(server_.get(), address.c_str(), static_cast<ev_uint16_t>(port));
    if (socket != nullptr) evconnlistener_set_error_cb(evhttp_bound_socket_get_listener(socket), pauseAccepting);
    return socket != nullptr;
}

void HttpServer::judge(evhttp_request* raw) const {
    for (const auto& [name, value] : protection) evhttp_add_header(evhttp_request_get_output_headers(raw), name, value);
    const Request request = read(raw);
    if (!isForAddress(raw)) return request.reply(421, "The panel is reached by its address.\n");
    if (!isFromOwnPage(raw, request.isPost)) return request.reply(403, "The panel listens to its own page alone.\n");
    handler_(request);
}

}  // namespace panel
