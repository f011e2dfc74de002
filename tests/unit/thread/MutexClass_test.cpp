#include "thread/MutexClass.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

#include "tests/unit/thread/background_call.h"

namespace {

/// Hangs if the mutex is not free for another thread.
void lockElsewhere(CMutexClass& mutex) {
    std::thread([&] {
        mutex.Lock();
        EXPECT_TRUE(mutex.heldByCaller());
        mutex.Unlock();
    }).join();
}

TEST(MutexClass, IsCreatedAndFree) {
    CMutexClass mutex;
    EXPECT_TRUE(mutex.created());
    EXPECT_FALSE(mutex.heldByCaller());
    lockElsewhere(mutex);
}

TEST(MutexClass, TheHolderIsTheThreadThatLocked) {
    CMutexClass mutex;
    mutex.Lock();
    EXPECT_TRUE(mutex.heldByCaller());
    std::thread([&] { EXPECT_FALSE(mutex.heldByCaller()); }).join();
    mutex.Unlock();
    EXPECT_FALSE(mutex.heldByCaller());
}

TEST(MutexClass, AnotherThreadWaitsForTheHolder) {
    CMutexClass mutex;
    mutex.Lock();
    BackgroundCall other([&] {
        mutex.Lock();
        mutex.Unlock();
    });
    EXPECT_TRUE(other.staysBlocked());
    mutex.Unlock();
    EXPECT_TRUE(other.returns());
}

TEST(MutexClass, TheFirstUnlockFreesANestedLockForGood) {
    CMutexClass mutex;
    mutex.Lock();
    mutex.Lock();
    mutex.Unlock();
    EXPECT_FALSE(mutex.heldByCaller());
    lockElsewhere(mutex);
    mutex.Unlock();
    lockElsewhere(mutex);
}

TEST(MutexClass, AnUnlockByAnotherThreadLeavesTheLockHeld) {
    CMutexClass mutex;
    mutex.Lock();
    std::thread([&] { mutex.Unlock(); }).join();
    EXPECT_TRUE(mutex.heldByCaller());
    BackgroundCall other([&] {
        mutex.Lock();
        mutex.Unlock();
    });
    EXPECT_TRUE(other.staysBlocked());
    mutex.Unlock();
}

TEST(MutexClass, AnUnlockOfAFreeMutexDoesNothing) {
    CMutexClass mutex;
    mutex.Unlock();
    mutex.Unlock();
    lockElsewhere(mutex);
}

TEST(MutexClass, ItsEndWaitsForTheHolder) {
    auto mutex = std::make_unique<CMutexClass>();
    mutex->Lock();
    BackgroundCall destruction([owner = mutex.get()] { std::destroy_at(owner); });
    EXPECT_TRUE(destruction.staysBlocked());
    mutex->Unlock();
    EXPECT_TRUE(destruction.returns());
    // The mutex was destroyed above; its memory gets an object again for the owner to end.
    std::construct_at(mutex.get());
}

// The test only has to come to its end: a destructor that waited for the holder would wait
// for ever.
TEST(MutexClass, ItsHolderMayEndIt) {
    CMutexClass mutex;
    mutex.Lock();
}

TEST(MutexClass, AGuardHoldsItForAScope) {
    CMutexClass mutex;
    {
        MutexGuard guard(mutex);
        EXPECT_TRUE(mutex.heldByCaller());
    }
    EXPECT_FALSE(mutex.heldByCaller());
    lockElsewhere(mutex);
}

TEST(MutexClass, OneThreadAtATimeIsInside) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 5000;
    CMutexClass mutex;
    int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < kRounds; ++round) {
                MutexGuard guard(mutex);
                ++count;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(count, kThreads * kRounds);
}

}  // namespace
