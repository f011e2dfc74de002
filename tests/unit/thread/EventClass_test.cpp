#include "thread/EventClass.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "tests/unit/thread/background_call.h"
#include "tests/unit/thread/system_calls.h"

namespace {

bool trySetElsewhere(CEventClass& event) {
    bool done = false;
    std::thread([&] { done = event.trySet(); }).join();
    return done;
}

TEST(EventClass, IsCreatedWithoutAWakeUp) {
    CEventClass event;
    EXPECT_TRUE(event.created());
}

TEST(EventClass, ASetWakesTheWaiter) {
    CEventClass event;
    BackgroundCall waiter([&] {
        EXPECT_TRUE(event.Wait());
        event.Reset();
    });
    EXPECT_TRUE(waiter.staysBlocked());
    event.Set();
    EXPECT_TRUE(waiter.returns());
}

TEST(EventClass, ASetThatComesFirstIsKept) {
    CEventClass event;
    event.Set();
    EXPECT_TRUE(event.Wait());
    event.Reset();
    EXPECT_TRUE(event.trySet());
    EXPECT_TRUE(event.Wait());
    event.Reset();
}

TEST(EventClass, SetsBeforeTheWaitAreOneWakeUp) {
    CEventClass event;
    event.Set();
    event.Set();
    EXPECT_TRUE(event.Wait());
    event.Reset();
    BackgroundCall waiter([&] {
        event.Wait();
        event.Reset();
    });
    EXPECT_TRUE(waiter.staysBlocked());
    event.Set();
    EXPECT_TRUE(waiter.returns());
}

TEST(EventClass, ASetWaitsForTheEndOfTheBracket) {
    CEventClass event;
    event.Set();
    event.Wait();
    BackgroundCall setter([&] { event.Set(); });
    EXPECT_TRUE(setter.staysBlocked());
    event.Reset();
    EXPECT_TRUE(setter.returns());
    // The wake-up was not lost on the way.
    EXPECT_TRUE(event.Wait());
    event.Reset();
}

TEST(EventClass, ATryNeverWaitsForTheBracket) {
    CEventClass event;
    event.Set();
    event.Wait();
    EXPECT_FALSE(event.trySet());
    EXPECT_FALSE(trySetElsewhere(event));
    event.Reset();
    EXPECT_TRUE(trySetElsewhere(event));
}

TEST(EventClass, TheSignalIsSentAfterTheMutexIsFree) {
    CEventClass event;
    bool wasFree = false;
    system_calls::beforeNextSignal([&] { wasFree = trySetElsewhere(event); });
    event.Set();
    EXPECT_TRUE(wasFree);
}

TEST(EventClass, EveryWakeUpOfALongRowArrives) {
    constexpr int kRounds = 2000;
    CEventClass there;
    CEventClass back;
    BackgroundCall partner([&] {
        for (int round = 0; round < kRounds; ++round) {
            there.Wait();
            there.Reset();
            back.Set();
        }
    });
    for (int round = 0; round < kRounds; ++round) {
        there.Set();
        back.Wait();
        back.Reset();
    }
    EXPECT_TRUE(partner.returns());
}

TEST(EventClass, ItMayEndWithAnOpenBracket) {
    auto event = std::make_unique<CEventClass>();
    std::thread([&] {
        event->Set();
        event->Wait();
    }).join();
    EXPECT_FALSE(event->trySet());
    event.reset();
}

}  // namespace
