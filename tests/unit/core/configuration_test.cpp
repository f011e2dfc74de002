#include "core/configuration.h"

#include <gtest/gtest.h>

namespace {

TEST(Configuration, AnInterfaceHasItsDefaults) {
    const INTERFACE_DESCRIPTOR entry;
    EXPECT_EQ(entry.name, "");
    EXPECT_EQ(entry.port, 0);
    EXPECT_EQ(entry.connectionState, ConnectionState::kNotListening);
    EXPECT_EQ(entry.outSeparator, "\r\n");
    EXPECT_EQ(entry.inpSeparator, "\r\n");
    EXPECT_EQ(entry.threadDelay, 5000);
}

TEST(Configuration, TheConfigurationHasItsDefaults) {
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

TEST(Configuration, ACopyTakesEveryFieldAndIsItsOwn) {
    INTERFACE_DESCRIPTOR entry;
    entry.name = "CAE";
    entry.port = 2000;
    entry.connectionState = ConnectionState::kConnected;
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
        EXPECT_EQ(copy->connectionState, ConnectionState::kConnected);
        EXPECT_EQ(copy->outSeparator, ";");
        EXPECT_EQ(copy->inpSeparator, "#");
        EXPECT_EQ(copy->threadDelay, 1);
    }
}

}  // namespace
