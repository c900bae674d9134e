#include "panel/assets.h"

#include "host/base/atomic_file.h"

#include <algorithm>
#include <optional>

namespace panel {
namespace {

constexpr std::string_view terminalPrefix = "/terminal/";

struct Type {
    std::string_view ending;
    const char* name;
};

constexpr Type types[] = {{".html", "text/html; charset=utf-8"},
                          {".css", "text/css; charset=utf-8"},
                          {".js", "text/javascript; charset=utf-8"},
                          {".svg", "image/svg+xml"}};

const char* typeOf(std::string_view name) {
    const auto* type = std::find_if(std::begin(types), std::end(types),
                                    [name](const Type& known) { return name.ends_with(known.ending); });
    return type != std::end(types) ? type->name : nullptr;
}

/// No path leads out of its folder.
bool isPlainName(std::string_view name) {
    constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyz0123456789_.";
    return !name.starts_with('.') && name.find_first_not_of(allowed) == name.npos;
}

std::string folderOf(std::string_view path) { return path.starts_with(terminalPrefix) ? PANEL_TERMINAL : PANEL_PAGE; }

}  // namespace

void sendAsset(const Request& request) {
    const std::string path = request.path == "/" ? "/index.html" : request.path;
    const std::string name = path.substr(path.starts_with(terminalPrefix) ? terminalPrefix.size() : 1);
    const char* type = isPlainName(name) ? typeOf(name) : nullptr;
    const std::optional<std::string> file =
        type != nullptr ? host::readFile(folderOf(path) + "/" + name) : std::nullopt;
    if (!file) return request.reply(404, "There is no such page.\n");
    request.reply(200, *file, type);
}

}  // namespace panel
