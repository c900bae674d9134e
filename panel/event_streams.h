/// The pages that are open: each has one response that does not end (server-sent events).
#pragma once

#include "host/loop/event_loop.h"
#include "panel/http_server.h"

#include <functional>
#include <list>
#include <string>
#include <string_view>

struct evhttp_connection;

namespace panel {

class EventStreams {
  public:
    using Id = int;

    /// `onOpen` and `onClose` are called for each stream.
    EventStreams(host::EventLoop& loop, std::function<void(Id)> onOpen, std::function<void(Id)> onClose);
    EventStreams(const EventStreams&) = delete;
    EventStreams& operator=(const EventStreams&) = delete;
    ~EventStreams();

    /// Makes the answer to the request a stream, unless there are too many.
    void open(const Request& request);

    /// Sends a text of one line, to all or to one. A page that does not read is dropped.
    void send(std::string_view text);
    void sendTo(Id id, std::string_view text);

    bool isEmpty() const { return streams_.empty(); }
    bool holds(Id id) const;

  private:
    struct Stream {
        EventStreams* streams;
        Id id;
        evhttp_request* request;
        evhttp_connection* connection;
    };

    static void onClosed(evhttp_connection* connection, void* stream);
    void sendRaw(std::string_view bytes);
    void write(const Stream& stream, std::string_view bytes);
    void dropSlow();
    void sendKeepAlive();

    std::function<void(Id)> onOpen_;
    std::function<void(Id)> onClose_;
    std::list<Stream> streams_;
    Id lastId_ = 0;
    host::Timer keepAlive_;
};

}  // namespace panel
