#include "host/store/json_pointer.h"

#include <algorithm>

namespace host {
namespace {

std::string unescape(std::string_view escaped) {
    std::string key;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        const bool isEscape = escaped[i] == '~';
        if (isEscape) ++i;
        key += !isEscape ? escaped[i] : escaped[i] == '1' ? '/' : '~';
    }
    return key;
}

}  // namespace

void appendKey(std::string& path, std::string_view key) {
    path += '/';
    for (;;) {
        const std::size_t plain = std::min(key.find_first_of("~/"), key.size());
        path.append(key, 0, plain);
        if (plain == key.size()) return;
        path += key[plain] == '~' ? "~0" : "~1";
        key.remove_prefix(plain + 1);
    }
}

std::vector<std::string> keysOf(std::string_view path) {
    std::vector<std::string> keys;
    while (!path.empty()) {
        path.remove_prefix(1);
        const std::string_view escaped = path.substr(0, path.find('/'));
        keys.push_back(unescape(escaped));
        path.remove_prefix(escaped.size());
    }
    return keys;
}

std::string topKeyOf(std::string_view path) { return unescape(path.substr(1, path.find('/', 1) - 1)); }

std::vector<std::string> pathsAbove(std::string_view path) {
    std::vector<std::string> above;
    for (std::size_t slash = path.find('/', 1); slash != path.npos; slash = path.find('/', slash + 1)) {
        above.emplace_back(path.substr(0, slash));
    }
    return above;
}

PathRange onlyPath(std::string_view path) { return {std::string(path), std::string(path) + '\0'}; }

PathRange pathsBelow(std::string_view path) {
    static_assert('/' + 1 == '0');
    return {std::string(path) + '/', std::string(path) + '0'};
}

}  // namespace host
