#include "console/change_walk.h"

#include "command/log.h"
#include "console/command_table.h"
#include "settings/write_path.h"
#include "text/plain_leaf.h"
#include "text/text.h"

#include <json-c/json.h>

namespace {

constexpr char readyLeaf[] = R"({"system":{"slaveMcu":{"isReady":%s}}})";

/// Far longer than any template, so that a text that was cut matches none.
using MatchText = FixedText<512>;

void open(MatchText& text, const char* key) {
    text.append("{\"");
    text.append(key);
    text.append("\":");
}

// `text` is the match text up to the leaf's colon.

void showBoolean(MatchText& text, bool value, ChangeTurn& turn) {
    text.append("%s}");
    cipProcJson(text.c_str(), {value ? 1 : 0}, turn);
}

void showInteger(MatchText& text, int value, ChangeTurn& turn) {
    text.append("%d}");
    cipProcJson(text.c_str(), {value}, turn);
}

void showText(MatchText& text, const char* value, ChangeTurn& turn) {
    text.append("\"%s\"");
    cipProcJson(text.c_str(), {0, value}, turn);
}

void showLeaf(MatchText& text, json_object* leaf, ChangeTurn& turn) {
    switch (json_object_get_type(leaf)) {
        case json_type_boolean:
            return showBoolean(text, json_object_get_boolean(leaf) != 0, turn);
        case json_type_int:
            return showInteger(text, json_object_get_int(leaf), turn);
        case json_type_string:
            return showText(text, json_object_get_string(leaf), turn);
        default:
            return;  // no command shows a double, an array or a null
    }
}

/// `text` is the match text up to the object; each level appends to it and cuts it back.
void walkObject(json_object* node, MatchText& text, ChangeTurn& turn) {
    const std::size_t size = text.size();
    json_object_object_foreach(node, key, value) {
        open(text, key);
        if (json_object_is_type(value, json_type_object)) {
            walkObject(value, text, turn);
        } else {
            showLeaf(text, value, turn);
        }
        text.truncate(size);
    }
}

bool isAnnounced(const char* matchText) {
    const std::optional<int> broadcast = readBoolean(broadcastLeaf);
    if (!broadcast || readStatusBoolean(readyLeaf).value_or(0) != 1) return false;
    return *broadcast == 1 || std::strstr(broadcastLeaf, matchText) != nullptr;
}

}  // namespace

bool showPlainChange(const char* document, LineTurns& turns) {
    const std::optional<PlainLeaf> leaf = findPlainLeaf(document);
    if (!leaf) return false;
    MatchText value;
    value.append(leaf->value, leaf->size);
    if (value.isCut()) return false;
    MatchText text;
    text.append(document, static_cast<std::size_t>(leaf->value - document));
    ChangeTurn turn(turns);
    if (leaf->kind == PlainLeaf::Kind::integer) {
        showInteger(text, parseSignedDecimal(value.c_str()).value_or(0), turn);
    } else if (leaf->kind == PlainLeaf::Kind::truthValue) {
        showBoolean(text, equals(value.c_str(), "true"), turn);
    } else {
        value.truncate(leaf->size - 1);
        showText(text, value.c_str() + 1, turn);
    }
    return true;
}

void walkChangedJson(json_token* changes, const char* category, LineTurns& turns) {
    MatchText text;
    ChangeTurn turn(turns);
    if (json_object_is_type(changes, json_type_object)) return walkObject(changes, text, turn);
    open(text, category);
    if (!json_object_is_type(changes, json_type_string)) return showLeaf(text, changes, turn);
    text.append("%s}");  // without the quotes of a text below a key
    cipProcJson(text.c_str(), {0, json_object_get_string(changes)}, turn);
}

void cipProcJson(const char* matchText, const ChangedValue& value, ChangeTurn& turn) {
    if (!isAnnounced(matchText)) return;
    if (const CommandEntry* entry = findLeaf(matchText)) {
        if (entry->family.printer == nullptr) return;
        turn.take();
        return entry->family.printer({entry->name, entry->family, value});
    }
    if (isLogged(LOG_LEVEL_ERROR)) __printLog(LOG_LEVEL_ERROR, "[%s] Cant find command\r\n", "cipProcJson");
}
