#include "tests/unit/history/HistoryFixture.h"

#include "settings/ChangeNotification.h"

namespace wardlock::test {

std::vector<std::string> HistoryFixture::announced() {
    std::vector<std::string> found;
    for (const auto& post : center.posts) {
        if (!post.userInfo) {
            found.emplace_back("reload");
            continue;
        }
        const platform::Value& object = *post.userInfo->find(ChangeObject);
        const auto* record = platform::dictionaryValue(&object);
        const auto* list = platform::arrayValue(&object);
        std::string text(*platform::stringValue(post.userInfo->find(ChangeKey)));
        if (record)
            text += "=account " + Accounts(platform::Array{object}).name(0);
        else if (list)
            text += "=list of " + std::to_string(list->size());
        else if (object.is(platform::Value::Kind::Boolean))
            text += object.boolean() ? "=true" : "=false";
        else
            text += "=" + std::string(platform::stringValue(&object).value_or("?"));
        found.push_back(text);
    }
    center.posts.clear();
    return found;
}

} // namespace wardlock::test
