#include "platform/runtime/NSOperationQueue.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

using platform::NSOperationQueue;

namespace {

NSOperationQueue& queue = NSOperationQueue::mainQueue();

TEST(NSOperationQueue, RunsOperationsInTheOrderOfTheirAdding) {
    std::vector<int> ran;
    for (int i = 0; i < 5; ++i)
        queue.addOperation([&ran, i] { ran.push_back(i); });
    EXPECT_TRUE(ran.empty());
    queue.drain();
    EXPECT_EQ(ran, (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_TRUE(queue.empty());
}

TEST(NSOperationQueue, LeavesOperationsAddedByOperationsForTheNextTime) {
    int ran = 0;
    queue.addOperation([&] { queue.addOperation([&] { ++ran; }); });
    queue.drain();
    EXPECT_EQ(ran, 0);
    EXPECT_FALSE(queue.empty());
    queue.drain();
    EXPECT_EQ(ran, 1);
}

TEST(NSOperationQueue, KeepsEachThreadsOrderWhenManyAdd) {
    constexpr int threads = 8;
    constexpr int each = 500;
    std::vector<std::vector<int>> ran(threads);
    std::vector<std::thread> adding;
    for (int thread = 0; thread < threads; ++thread) {
        adding.emplace_back([&ran, thread] {
            for (int i = 0; i < each; ++i)
                queue.addOperation([&ran, thread, i] { ran[static_cast<std::size_t>(thread)].push_back(i); });
        });
    }
    queue.drain();
    for (auto& thread : adding)
        thread.join();
    queue.drain();
    std::vector<int> inOrder(each);
    for (int i = 0; i < each; ++i)
        inOrder[static_cast<std::size_t>(i)] = i;
    EXPECT_EQ(ran, std::vector<std::vector<int>>(threads, inOrder));
}

TEST(NSOperationQueue, KeepsTheOperationsBehindOneThatThrows) {
    bool ran = false;
    queue.addOperation([] { throw std::runtime_error("thrown"); });
    queue.addOperation([&] { ran = true; });
    EXPECT_THROW(queue.drain(), std::runtime_error);
    EXPECT_FALSE(ran);
    queue.drain();
    EXPECT_TRUE(ran);
}

TEST(NSOperationQueue, CanBeDrainedFromWithinAnOperation) {
    std::vector<int> ran;
    queue.addOperation([&] {
        ran.push_back(1);
        queue.drain();
        ran.push_back(3);
    });
    queue.addOperation([&] { ran.push_back(2); });
    queue.drain();
    EXPECT_EQ(ran, (std::vector<int>{1, 2, 3}));
}

TEST(NSOperationQueue, IgnoresAnEmptyOperation) {
    queue.addOperation(nullptr);
    EXPECT_TRUE(queue.empty());
}

TEST(NSOperationQueue, DistinguishesTheMainThreadFromOthers) {
    EXPECT_TRUE(NSOperationQueue::isMainThread());
    bool elsewhere = true;
    std::thread([&] { elsewhere = NSOperationQueue::isMainThread(); }).join();
    EXPECT_FALSE(elsewhere);
}

} // namespace
