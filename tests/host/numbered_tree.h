/// What a writer stores in the tests: a document that tells whether it is whole, and which one of many it is.
#pragma once

#include "host/store/store.h"

#include <gtest/gtest.h>
#include <string>

inline int readInt(host::Store& store, const char* query) {
    int value = -1;
    store.readLeaf(query, [&value](json_object* leaf) {
        value = json_object_get_int(leaf);
        return true;
    });
    return value;
}

/// Several leaves that all carry the same number.
inline std::string treeOf(std::size_t writer, int number) {
    std::string leaves;
    for (int i = 0; i < 10; ++i)
        leaves += (i == 0 ? "\"l" : ",\"l") + std::to_string(i) + "\":" + std::to_string(number);
    return R"({"w)" + std::to_string(writer) + R"(":{)" + leaves + "}}";
}

/// What is stored of a writer is one whole document, and none older than the last one confirmed.
inline void expectWhatWasConfirmed(const host::StoreKind& kind, std::size_t writer, int confirmed) {
    host::Store store(kind);
    const std::string branch = "{\"w" + std::to_string(writer) + "\":{}}";
    const int stored = readInt(store, treeOf(writer, 0).c_str());
    EXPECT_GE(stored, confirmed);
    EXPECT_STREQ(treeOf(writer, stored).c_str(), host::compactText(store.readTree(branch.c_str()).get()));
}
