#include "utils/common_utils/object_pool.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <thread>
#include <vector>

namespace zelvor {

TEST(ObjectPool, ObjectsDoNotOverlapAndReleasedOnesAreUsedAgain) {
    constexpr std::size_t size = 1928, count = 4000; // several blocks
    ObjectPool pool(size);
    std::vector<void*> objects[2];
    std::thread threads[2];
    for (int t = 0; t < 2; ++t)
        threads[t] = std::thread([&, t] {
            for (std::size_t i = 0; i < count; ++i)
                objects[t].push_back(std::memset(pool.allocate(), t + 1, size));
        });
    for (std::thread& thread : threads)
        thread.join();
    std::set<const void*> distinct;
    for (int t = 0; t < 2; ++t)
        for (void* const object : objects[t]) {
            distinct.insert(object);
            EXPECT_EQ(*static_cast<char*>(object), t + 1);
            EXPECT_EQ(std::memcmp(object, static_cast<char*>(object) + 1, size - 1), 0);
        }
    EXPECT_EQ(distinct.size(), 2 * count);
    pool.release(nullptr);
    pool.release(objects[0][3]);
    pool.release(objects[1][7]);
    EXPECT_EQ(pool.allocate(), objects[1][7]);
    EXPECT_EQ(pool.allocate(), objects[0][3]);
    EXPECT_FALSE(distinct.contains(pool.allocate()));
}

} // namespace zelvor
