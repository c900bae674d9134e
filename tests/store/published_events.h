/// The event bus of these tests: keeps what is published.
#pragma once

#include <string>
#include <vector>

/// What was published by this process since the last call, each as "event payload".
std::vector<std::string> takePublished();
