/// Who may talk to the panel: the page that it serves itself, and no other that happens to be open in the browser.
#pragma once

struct evhttp_request;

namespace panel {

/// Whether the request names this machine by its address. A host name is refused, because
/// anyone can have one that resolves to this machine (DNS rebinding).
bool isForAddress(evhttp_request* request);

/// Whether no page of another origin has caused the request. What changes anything has to come from a page of ours.
bool isFromOwnPage(evhttp_request* request, bool changesSomething);

}  // namespace panel
