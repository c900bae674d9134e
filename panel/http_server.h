/// The panel's web server: requests of bounded size, from its own page alone.
#pragma once

#include "host/loop/event_loop.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct evhttp;
struct evhttp_request;

namespace panel {

struct Request {
    evhttp_request* raw;
    bool isPost;
    std::string path;   ///< "/settings"
    std::string query;  ///< what follows the question mark
    std::string body;

    /// Answers with a text. Each request is answered once.
    void reply(int status, std::string_view text, const char* type = "text/plain; charset=utf-8") const;
};

class HttpServer {
  public:
    using Handler = std::function<void(const Request&)>;

    HttpServer(host::EventLoop& loop, Handler handler);

    /// False with errno set.
    bool listen(const std::string& address, int port);

  private:
    void judge(evhttp_request* request) const;

    std::unique_ptr<evhttp, void (*)(evhttp*)> server_;
    Handler handler_;
};

}  // namespace panel
