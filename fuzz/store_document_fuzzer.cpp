/// Hands any texts to a store, one a line, as update documents and as queries, and compares it with a plain map.

#include "fuzz/require.h"
#include "host/base/device_root.h"
#include "host/store/preparation.h"
#include "host/store/typed_query.h"
#include "platform/logger.h"
#include "tests/store/published_events.h"

#include <cstdint>
#include <filesystem>
#include <json-c/json_object_iterator.h>
#include <json-c/linkhash.h>
#include <map>
#include <optional>

namespace {

using Keys = std::vector<std::string>;

/// A leaf's value, as JSON text, by the keys that lead to it.
using Model = std::map<Keys, std::string>;

/// A folder for one run.
class Root {
  public:
    Root() {
        std::string path = std::filesystem::temp_directory_path() / "store_document_fuzzer-XXXXXX";
        host::setDeviceRoot(mkdtemp(path.data()));
        fuzz::require(host::prepareFreshStore(host::statusKind, "{}"), "there is a store");
    }
    Root(const Root&) = delete;
    Root& operator=(const Root&) = delete;
    ~Root() { std::filesystem::remove_all(host::deviceRoot()); }
};

bool isObject(json_object* value) { return json_object_is_type(value, json_type_object) != 0; }

bool isBelow(const Keys& keys, const Keys& above) {
    return keys.size() >= above.size() && std::equal(above.begin(), above.end(), keys.begin());
}

void collect(json_object* object, Keys keys, Model& model) {
    json_object_object_foreach(object, key, value) {
        keys.emplace_back(key);
        if (isObject(value)) {
            collect(value, keys, model);
        } else {
            model[keys] = host::compactText(value);
        }
        keys.pop_back();
    }
}

Model leavesOf(json_object* object) {
    Model model;
    if (object != nullptr) collect(object, {}, model);
    return model;
}

/// A leaf takes the place of all that stands above or below it.
void merge(Model& model, const Model& document) {
    for (const auto& [keys, value] : document) {
        std::erase_if(
            model, [&keys = keys](const auto& leaf) { return isBelow(leaf.first, keys) || isBelow(keys, leaf.first); });
        model[keys] = value;
    }
}

/// The first member of each object is the next key.
Keys queried(json_object* query) {
    Keys keys;
    while (isObject(query) && json_object_object_length(query) > 0) {
        const json_object_iterator first = json_object_iter_begin(query);
        keys.emplace_back(json_object_iter_peek_name(&first));
        query = json_object_iter_peek_value(&first);
    }
    return keys;
}

Model below(const Model& model, const Keys& above) {
    Model part = model;
    std::erase_if(part, [&above](const auto& leaf) { return !isBelow(leaf.first, above); });
    return part;
}

/// A query's answers agree with each other and with what was stored.
void checkQuery(host::Store& store, const Model& model, const char* text) {
    const host::Json tree = store.readTree(text);
    const host::Json query = host::parseFirstJson(text);
    if (!isObject(query.get())) return fuzz::require(tree == nullptr, "no object asks for nothing", text);
    const Keys keys = queried(query.get());
    const Model expected = below(model, keys);
    fuzz::require((tree != nullptr) == !expected.empty(), "a query finds what is there", text);
    fuzz::require(leavesOf(tree.get()) == expected, "a query finds what was stored", text);

    int number = 0;
    double real = 0;
    char* copy = nullptr;
    const bool isText = host::queryString(store, text, &copy) != 0;
    free(copy);
    const int kinds = host::queryBoolean(store, text, &number) + host::queryInt(store, text, &number) + isText;
    fuzz::require(kinds <= (model.contains(keys) ? 1 : 0), "a leaf is of one kind", text);
    host::queryDouble(store, text, &real);
}

void checkUpdate(host::Store& store, Model& model, const char* text) {
    const Model before = model;
    const host::Json document = host::parseUpdate(text);
    if (document) merge(model, leavesOf(document.get()));
    fuzz::require(store.update(text) == (document != nullptr), "a document is stored or refused", text);
    const bool isAnnounced = !takePublished().empty();
    fuzz::require(isAnnounced == (model != before), "a change is announced, and nothing else", text);
}

}  // namespace

/// Refused documents are not worth a line each.
const volatile int* __logLevels = nullptr;
void __printLog(int /*level*/, const char* /*format*/, ...) {}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Root root;
    static host::Store store(host::statusKind);
    fuzz::require(store.replaceAll("{}"), "a store is emptied");
    Model model;
    std::string texts(data, data + size);
    for (std::size_t start = 0; start < texts.size();) {
        const std::size_t end = std::min(texts.find('\n', start), texts.size());
        const std::string text = texts.substr(start, end - start).c_str();
        checkUpdate(store, model, text.c_str());
        checkQuery(store, model, text.c_str());
        start = end + 1;
    }
    checkQuery(store, model, "{}");
    return 0;
}
