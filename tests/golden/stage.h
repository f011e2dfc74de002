#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/golden/bus_trace.h"
#include "tests/golden/item.h"
#include "tests/golden/setup.h"
#include "tests/golden/step.h"
#include "tests/support/files.h"
#include "tests/support/process/daemon_process.h"
#include "tests/support/process/silent_adapter.h"
#include "tests/support/process/sim_process.h"
#include "tests/support/process/system_log.h"
#include "tests/support/tcp/tcp_client.h"

namespace golden {

/// Everything that a dialogue needs: the simulated bus, the daemon and its clients, in the
/// private view of this process. A process may have one Stage at a time.
class Stage {
  public:
    /// Prepares everything and starts the simulated bus. The daemon does not run yet.
    explicit Stage(const Setup& setup);

    /// Returns true for the first word of an action.
    static bool hasAction(std::string_view verb);

    /// Carries out one action; throws std::exception when that is impossible.
    void perform(const Step& step);
    /// Returns everything that has come on any channel since the last call.
    std::vector<Item> collect();
    /// Waits until the daemon has read the bytes of the last send, so that it does not read the
    /// next ones together with them.
    void waitForReads();
    /// Ends daemon and bus. Returns a description of what went wrong, or nothing.
    std::string finish();
    /// Returns the last frames on the bus, with their times.
    std::string frameLog() const;

  private:
    struct Client {
        support::TcpClient connection;
        bool closeReported = false;
    };

    /// The function of each action, by its first word. A function takes the rest of the line.
    static const std::map<std::string, void (Stage::*)(const std::string&), std::less<>>& actions();

    void boot(const std::string& clients);
    void start(const std::string& argument);
    void connect(const std::string& name);
    void awaitRefusal(const std::string& interface);
    void close(const std::string& name);
    void reset(const std::string& name);
    void send(const std::string& argument);
    void controlBus(const std::string& line);
    void addSilentAdapter(const std::string& path);
    void signal(const std::string& name);
    void keepQuiet(const std::string& seconds);
    Client& client(const std::string& name);
    void collectClients(std::vector<Item>& items);
    void collectEnd(std::vector<Item>& items);

    Setup setup_;
    std::unique_ptr<support::SystemLog> systemLog_;
    std::unique_ptr<support::SimProcess> bus_;
    std::map<std::string, std::unique_ptr<support::SilentAdapter>> silentAdapters_;
    support::DaemonProcess daemon_;
    std::map<std::string, Client> clients_;
    std::string lastSender_;
    BusTrace busTrace_;
    std::vector<Item> busAnswers_;
    support::FileTail log_;
    support::FileTail output_;
    support::FileTail errors_;
    bool started_ = false;
    bool endReported_ = false;
    bool stopping_ = false;
};

}  // namespace golden
