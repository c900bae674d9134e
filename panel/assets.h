/// The files of the page.
#pragma once

#include "panel/http_server.h"

namespace panel {

/// Answers with the file that the path names: one of the page's own folder or, below "/terminal/", of the terminal's.
void sendAsset(const Request& request);

}  // namespace panel
