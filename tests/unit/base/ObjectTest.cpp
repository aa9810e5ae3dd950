#include "platform/base/Object.h"

#include <gtest/gtest.h>

#include <memory>

using namespace platform;

namespace {

class Protocol {
public:
    virtual ~Protocol() = default;
};

class Page : public Object, public Protocol {
public:
    explicit Page(bool& gone) : gone_(gone) {}
    ~Page() override { gone_ = true; }

    std::shared_ptr<Page> owner() { return self(this); }

private:
    bool& gone_;
};

} // namespace

TEST(Object, ReturnsItsOwningPointerAsItsOwnClass) {
    bool gone = false;
    const auto page = std::make_shared<Page>(gone);
    const std::shared_ptr<Page> owner = page->owner();
    EXPECT_EQ(owner, page);
    EXPECT_EQ(page.use_count(), 2);
}

TEST(Object, IsDestroyedThroughItsBase) {
    bool gone = false;
    std::shared_ptr<Object> page = std::make_shared<Page>(gone);
    page.reset();
    EXPECT_TRUE(gone);
}

TEST(Object, IsNotKeptByAWeakPointer) {
    bool gone = false;
    auto page = std::make_shared<Page>(gone);
    const std::weak_ptr<Object> weak = page;
    page.reset();
    EXPECT_TRUE(weak.expired());
}

TEST(Object, IsReachedThroughAProtocolThatItImplements) {
    bool gone = false;
    const std::shared_ptr<Protocol> protocol = std::make_shared<Page>(gone);
    EXPECT_NE(std::dynamic_pointer_cast<Object>(protocol), nullptr);
}
