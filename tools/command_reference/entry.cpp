#include "tools/command_reference/entry.h"

#include "console/command_table.h"
#include "settings/leaf.h"
#include "tests/fake_platform/fake_platform.h"
#include "text/text.h"
#include "tools/command_reference/values.h"

#include <algorithm>

namespace {

/// "a.b.c" for the template {"a":{"b":{"c":%d}}}.
std::string pathOf(const std::string& leaf) {
    std::string path;
    for (std::size_t start = leaf.find('"'); leaf.compare(start, 2, "\"%") != 0;) {
        const std::size_t end = leaf.find('"', start + 1);
        path.append(path.empty() ? "" : ".").append(leaf, start + 1, end - start - 1);
        start = leaf.find_first_of("\"%", end + 1);
        if (start == std::string::npos || leaf[start] == '%') break;
    }
    return path;
}

/// Where the row's value stands, and what a new device has there.
std::string describeLeaf(const char* leaf) {
    if (leaf[0] != '{') return "factory data " + std::string(leaf);
    const std::string query = fillInteger(leaf, 0).c_str();
    const std::string setting = fake_platform::config(query);
    return pathOf(leaf) + (setting.empty() ? ", status, now " + fake_platform::status(query) : " = " + setting);
}

std::string exampleOf(const CommandEntry& row) {
    const char* example = exampleFor(row.name);
    return example != nullptr ? example : exampleValueOf(row);
}

Entry describe(const CommandEntry& row) {
    Entry entry;
    entry.row = &row;
    entry.takes = valuesOf(row);
    entry.example = exampleOf(row);
    entry.off = play(entry.example, false);
    entry.on = play(entry.example, true);
    return entry;
}

bool isFirstRow(const Topic& topic, const CommandEntry& row) { return equals(topic.firstRow, row.name); }

bool beginsAnotherTopic(const Topic& topic, const CommandEntry& row) {
    return !isFirstRow(topic, row) &&
           std::ranges::any_of(topics(), [&row](const Topic& other) { return isFirstRow(other, row); });
}

}  // namespace

std::vector<Entry> entriesOf(const Topic& topic) {
    std::vector<Entry> entries;
    bool isInside = false;
    for (const CommandEntry& row : commandTable()) {
        isInside = isInside ? !beginsAnotherTopic(topic, row) : isFirstRow(topic, row);
        if (!isInside) continue;
        makeNewDevice(true);
        const std::string leaf = isEmpty(row.leaf) ? "" : describeLeaf(row.leaf);
        if (entries.empty() || !equals(entries.back().row->name, row.name)) entries.push_back(describe(row));
        if (!leaf.empty()) entries.back().leaves.push_back(leaf);
    }
    return entries;
}
