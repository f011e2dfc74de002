#include "core/descriptors.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

TEST(Descriptors, AnInterfaceHasItsDefaults) {
    const INTERFACE_DESCRIPTOR entry;
    EXPECT_EQ(entry.name, "");
    EXPECT_EQ(entry.port, 0);
    EXPECT_EQ(entry.connectionState, 0);
    EXPECT_EQ(entry.outSeparator, "\r\n");
    EXPECT_EQ(entry.inpSeparator, "\r\n");
    EXPECT_EQ(entry.threadDelay, 5000);
}

TEST(Descriptors, TheConfigurationHasItsDefaults) {
    const CONFIG_DESCRIPTOR config;
    for (const INTERFACE_DESCRIPTOR* entry :
         {&config.io, &config.cae, &config.mon, &config.spare}) {
        EXPECT_EQ(entry->name, "");
        EXPECT_EQ(entry->port, 0);
        EXPECT_EQ(entry->inpSeparator, "\r\n");
        EXPECT_EQ(entry->outSeparator, "\r\n");
        EXPECT_EQ(entry->threadDelay, 5000);
    }
    EXPECT_EQ(config.debugLogFile, "");
    EXPECT_EQ(config.logLevel, 0);
    EXPECT_EQ(config.errorText, "NONE");
    EXPECT_EQ(config.threadDelay, 5000);
    EXPECT_FALSE(config.initialPollState);
    EXPECT_FALSE(config.autoDiscover);
}

TEST(Descriptors, ACopyTakesEveryFieldAndIsItsOwn) {
    INTERFACE_DESCRIPTOR entry;
    entry.name = "CAE";
    entry.port = 2000;
    entry.connectionState = connection_state::kConnected;
    entry.outSeparator = ";";
    entry.inpSeparator = "#";
    entry.threadDelay = 1;
    INTERFACE_DESCRIPTOR constructed(entry);
    INTERFACE_DESCRIPTOR assigned;
    assigned = entry;
    entry = INTERFACE_DESCRIPTOR();
    for (const INTERFACE_DESCRIPTOR* copy : {&constructed, &assigned}) {
        EXPECT_EQ(copy->name, "CAE");
        EXPECT_EQ(copy->port, 2000);
        EXPECT_EQ(copy->connectionState, 3);
        EXPECT_EQ(copy->outSeparator, ";");
        EXPECT_EQ(copy->inpSeparator, "#");
        EXPECT_EQ(copy->threadDelay, 1);
    }
}

TEST(Descriptors, ASharedFieldIsReplacedOnlyFromTheExpectedValue) {
    SharedField<std::int32_t> field{connection_state::kAccepting};
    EXPECT_FALSE(field.replace(connection_state::kListening, connection_state::kConnected));
    EXPECT_EQ(field, connection_state::kAccepting);
    EXPECT_TRUE(field.replace(connection_state::kAccepting, connection_state::kConnected));
    EXPECT_EQ(field, connection_state::kConnected);
}

TEST(Descriptors, OfManyReplacementsOneWins) {
    SharedField<std::int32_t> field{0};
    std::atomic<int> winners{0};
    std::vector<std::thread> threads;
    for (std::int32_t id = 1; id <= 4; ++id) {
        threads.emplace_back([&, id] { winners += field.replace(0, id) ? 1 : 0; });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(winners, 1);
    EXPECT_NE(field, 0);
}

}  // namespace
