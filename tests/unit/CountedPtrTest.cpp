#include <gtest/gtest.h>
#include "counted_ptr.h"

namespace {
struct Tracked {
    explicit Tracked(int* deaths) : deaths(deaths) {}
    virtual ~Tracked() { ++*deaths; }
    int* deaths;
};
struct Derived : Tracked {
    Derived(int* deaths, int* derivedDeaths) : Tracked(deaths), derivedDeaths(derivedDeaths) {}
    ~Derived() override { ++*derivedDeaths; }
    int* derivedDeaths;
};
}  // namespace

TEST(CountedPtr, CopiesShareOneCountAndTheLastReleaseDeletesThroughTheVirtualDestructor) {
    int deaths = 0, derivedDeaths = 0;
    {
        counted_ptr<Tracked> first(new Derived(&deaths, &derivedDeaths));
        EXPECT_EQ(first.use_count(), 1);
        {
            counted_ptr<Tracked> second = first;
            counted_ptr<Tracked> third;
            third = second;
            EXPECT_EQ(first.use_count(), 3);
            EXPECT_EQ(third.get(), first.get());
        }
        EXPECT_EQ(first.use_count(), 1);
        EXPECT_EQ(deaths, 0);
        first = first;  // self-assignment keeps the object
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(derivedDeaths, 1);
}

TEST(CountedPtr, NullBlockAndNullObjectAreBothEmpty) {
    counted_ptr<Tracked> none;
    counted_ptr<Tracked> nullObject(static_cast<Tracked*>(nullptr));
    EXPECT_TRUE(none.empty());
    EXPECT_TRUE(nullObject.empty());
    EXPECT_FALSE(static_cast<bool>(nullObject));
    EXPECT_EQ(none.use_count(), 0);
}
