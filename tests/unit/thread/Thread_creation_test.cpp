#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>

#include "tests/support/sanitizer.h"
#include "tests/unit/thread/system_calls.h"
#include "tests/unit/thread/worker.h"

namespace {

std::atomic<bool> memoryRefused{false};

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return memoryRefused ? nullptr : ::operator new[](size);
}

namespace {

std::string refusalLine(int error) {
    return "error: could not create thread, pthread_create failed (" + std::to_string(error) +
           ")!\n";
}

TEST(ThreadCreation, ARefusedKernelIsReportedAndTriedAgainByStart) {
    testing::internal::CaptureStderr();
    std::optional<system_calls::RefusedKernels> refused(EPERM);
    Worker worker;
    EXPECT_EQ(worker.errorFlags(), thread_error::kThreadCreation);
    EXPECT_EQ(worker.ThreadState(), KernelState::kFault);
    EXPECT_FALSE(worker.Start());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), refusalLine(EPERM) + refusalLine(EPERM));
    refused.reset();

    EXPECT_TRUE(worker.Start());
    EXPECT_EQ(worker.errorFlags(), 0U);
    EXPECT_TRUE(worker.PingThread(0));
    worker.wake();
    EXPECT_TRUE(worker.reachesCycle(1));
}

TEST(ThreadCreation, AThreadWithoutKernelStopsAtOnce) {
    testing::internal::CaptureStderr();
    system_calls::RefusedKernels refused(EAGAIN);
    Worker worker;
    testing::internal::GetCapturedStderr();
    int event = 0;
    EXPECT_TRUE(worker.wake());
    EXPECT_TRUE(worker.Event(&event));
    worker.Stop();
    EXPECT_EQ(worker.ThreadState(), KernelState::kDown);
}

TEST(ThreadCreation, AThreadWithoutQueueHasNoKernel) {
    const int kernels = system_calls::kernelsCreated();
    memoryRefused = true;
    Worker worker;
    memoryRefused = false;
    EXPECT_EQ(worker.errorFlags(), thread_error::kQueueMemory);
    EXPECT_EQ(worker.ThreadState(), KernelState::kFault);
    EXPECT_EQ(system_calls::kernelsCreated(), kernels);
    EXPECT_FALSE(worker.PingThread(1000));
    int event = 0;
    EXPECT_FALSE(worker.Push(&event));
    EXPECT_FALSE(worker.Event(&event));
    EXPECT_TRUE(worker.Push(nullptr));
}

TEST(ThreadCreation, StartingTwiceCreatesOneKernel) {
    system_calls::HeldKernels held;
    const int kernels = system_calls::kernelsCreated();
    Worker worker;
    EXPECT_TRUE(worker.Start());
    EXPECT_FALSE(worker.running());
    held.release();
    EXPECT_TRUE(worker.PingThread(0));
    EXPECT_TRUE(worker.Start());
    EXPECT_EQ(system_calls::kernelsCreated(), kernels + 1);
}

TEST(ThreadCreation, AStackSizeIsForTheNextKernel) {
    // Above the usual default: a smaller one may get the larger stack of an
    // earlier thread.
    constexpr std::uint32_t kStack = 64 * 1024 * 1024;
    std::atomic<std::size_t> stack{0};
    Worker worker([&] {
        pthread_attr_t attributes;
        pthread_getattr_np(pthread_self(), &attributes);
        std::size_t size = 0;
        pthread_attr_getstacksize(&attributes, &size);
        pthread_attr_destroy(&attributes);
        stack = size;
        return true;
    });
    worker.SetThreadType(kIntervalDriven, 1);
    EXPECT_TRUE(worker.reachesCycle(2));
    worker.Stop();

    worker.setStackSize(kStack);
    const int before = worker.cycles();
    EXPECT_TRUE(worker.Start());
    EXPECT_TRUE(worker.reachesCycle(before + 2));
    worker.Stop();
    EXPECT_GE(stack, kStack);
}

void exitAfterARefusalByTheSystem() {
    constexpr std::uint32_t kHugeStack = 0xF0000000;
    constexpr rlim_t kAddressSpace = rlim_t{1} << 30;
    Worker worker;
    worker.SetThreadType(kIntervalDriven, 1);
    worker.Stop();
    const rlimit limit{kAddressSpace, kAddressSpace};
    setrlimit(RLIMIT_AS, &limit);
    worker.setStackSize(kHugeStack);
    const bool refused = !worker.Start() && worker.ThreadState() == KernelState::kFault &&
                         (worker.errorFlags() & thread_error::kThreadCreation) != 0;
    worker.setStackSize(0);
    const bool started =
        worker.Start() && (worker.errorFlags() & thread_error::kThreadCreation) == 0;
    worker.Stop();
    _exit(refused && started ? EXIT_SUCCESS : EXIT_FAILURE);
}

TEST(ThreadCreationDeathTest, ARefusalByTheSystemIsReported) {
    if (support::kMemorySanitized) {
        GTEST_SKIP() << "this build reserves more address space than the limit leaves";
    }
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(exitAfterARefusalByTheSystem(), testing::ExitedWithCode(EXIT_SUCCESS),
                "^error: could not create thread, pthread_create failed \\(11\\)!\n$");
}

}  // namespace
