#include "utils/common_utils/object_pool.h"

#include "tests/testing.h"

#include <cstring>
#include <thread>

namespace zelvor {

TEST(ObjectPool, ObjectsDoNotOverlapAndReleasedOnesAreUsedAgain) {
    constexpr std::size_t size = 1928, count = 4000; // several blocks
    ObjectPool pool(size);
    std::vector<char*> objects[2];
    const auto fill = [&](int t) {
        for (std::size_t i = 0; i < count; ++i)
            objects[t].push_back(static_cast<char*>(std::memset(pool.allocate(), t + 1, size)));
    };
    std::thread other(fill, 1);
    fill(0);
    other.join();
    std::set<const void*> distinct;
    for (int t = 0; t < 2; ++t)
        for (const char* const object : objects[t]) {
            distinct.insert(object);
            EXPECT_EQ(std::string(object, size), std::string(size, static_cast<char>(t + 1)));
        }
    EXPECT_EQ(distinct.size(), 2 * count);
    pool.release(nullptr);
    pool.release(objects[0][3]);
    EXPECT_EQ(pool.allocate(), objects[0][3]);
    EXPECT_FALSE(distinct.contains(pool.allocate()));
}

} // namespace zelvor
