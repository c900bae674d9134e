#include "settings/leaf.h"

#include "platform/user_config.h"
#include "platform/user_status.h"

namespace {

/// A question: as long as a document before anything is escaped, and nothing in it is.
using Query = FixedText<256>;

/// Splits a template at its conversion ("%s", "%d" or "%f") and puts together what stands before, the value as
/// `appendValue` writes it, and what stands after. Not a printf: the value can never bring a conversion of its own.
template <typename Text, typename AppendValue>
Text fill(const char* leaf, AppendValue appendValue) {
    Text document;
    const char* conversion = std::strchr(leaf, '%');
    if (conversion == nullptr) {
        document.append(leaf);
        return document;
    }
    document.append(leaf, static_cast<std::size_t>(conversion - leaf));
    appendValue(document);
    document.append(conversion + 2);
    return document;
}

/// What is asked for, with any value of its kind.
Query fillQuery(const char* leaf, const char* anyValue) {
    return fill<Query>(leaf, [anyValue](Query& query) { query.append(anyValue); });
}

template <typename Value>
std::optional<Value> query(int (*ask)(const char*, Value*), const char* leaf, const char* anyValue = "0") {
    Value value{};
    if (ask(fillQuery(leaf, anyValue).c_str(), &value) == 0) return std::nullopt;
    return value;
}

OwnedText queryText(int (*ask)(const char*, char**), const char* leaf) {
    char* text = nullptr;
    if (ask(fillQuery(leaf, "").c_str(), &text) == 0) return nullptr;
    return OwnedText(text);
}

}  // namespace

Document fillBoolean(const char* leaf, bool value) {
    return fill<Document>(leaf, [value](Document& document) { document.append(value ? "true" : "false"); });
}

Document fillInteger(const char* leaf, int value) {
    return fill<Document>(leaf, [value](Document& document) { document.appendNumber(value); });
}

Document fillText(const char* leaf, const char* value) {
    return fill<Document>(leaf, [value](Document& document) { document.appendEscaped(value); });
}

std::optional<int> readBoolean(const char* leaf) { return query(user_config_query_boolean, leaf, "false"); }

std::optional<int> readInteger(const char* leaf) { return query(user_config_query_int, leaf); }

OwnedText readText(const char* leaf) { return queryText(user_config_query_string, leaf); }

std::optional<int> readStatusBoolean(const char* leaf) { return query(user_status_query_boolean, leaf, "false"); }

std::optional<int> readStatusInteger(const char* leaf) { return query(user_status_query_int, leaf); }

std::optional<double> readStatusDouble(const char* leaf) { return query(user_status_query_double, leaf); }

OwnedText readStatusText(const char* leaf) { return queryText(user_status_query_string, leaf); }
