#include "panel/origin.h"

#include <arpa/inet.h>
#include <event2/http.h>
#include <string>
#include <string_view>

namespace panel {
namespace {

std::string header(evhttp_request* request, const char* name) {
    const char* value = evhttp_find_header(evhttp_request_get_input_headers(request), name);
    return value != nullptr ? value : "";
}

bool isAddress(const std::string& name) {
    in6_addr parsed;
    return inet_pton(AF_INET, name.c_str(), &parsed) == 1 || inet_pton(AF_INET6, name.c_str(), &parsed) == 1;
}

/// "127.0.0.1" of "127.0.0.1:8323", "::1" of "[::1]:8323".
std::string withoutPort(std::string_view host) {
    const bool isBracketed = host.starts_with('[');
    if (isBracketed) host.remove_prefix(1);
    return std::string(host.substr(0, host.find(isBracketed ? ']' : ':')));
}

}  // namespace

bool isForAddress(evhttp_request* request) {
    const std::string name = withoutPort(header(request, "Host"));
    return name == "localhost" || isAddress(name);
}

bool isFromOwnPage(evhttp_request* request, bool changesSomething) {
    const std::string origin = header(request, "Origin");
    if (origin.empty() && changesSomething) return false;
    if (!origin.empty() && origin != "http://" + header(request, "Host")) return false;
    const std::string site = header(request, "Sec-Fetch-Site");
    const bool isNavigation = header(request, "Sec-Fetch-Mode") == "navigate" && !changesSomething;
    return site.empty() || site == "same-origin" || site == "none" || isNavigation;
}

}  // namespace panel
