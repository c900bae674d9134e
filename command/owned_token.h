/// A JSON token that its holder releases.
#pragma once

#include "platform/json_token.h"

#include <memory>

struct ReleaseToken {
    void operator()(json_token* token) const { json_token_ref_put(token); }
};

/// Empty (null) where there is none.
using OwnedToken = std::unique_ptr<json_token, ReleaseToken>;
