#include "panel/store_view.h"

#include <json-c/linkhash.h>

namespace panel {

host::Json StoreView::news() {
    const host::Json tree = whole();
    host::Json news;
    if (tree == nullptr) return news;
    json_object_object_foreach(tree.get(), key, branch) {
        std::string text = host::compactText(branch);
        std::string& sent = sent_[key];
        if (sent == text) continue;
        sent = std::move(text);
        if (news == nullptr) news.reset(json_object_new_object());
        json_object_object_add(news.get(), key, json_object_get(branch));
    }
    return news;
}

}  // namespace panel
