#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>

/// Makes the system refuse calls of the code under test, or lets something happen just
/// before one. The test program wraps the calls below when it is linked. There is one such
/// object at a time; any thread may use it.
class SystemFaults {
  public:
    enum class Call { kSocket, kSetsockopt, kBind, kListen, kAccept, kSelect };

    SystemFaults();
    ~SystemFaults();
    SystemFaults(const SystemFaults&) = delete;
    SystemFaults& operator=(const SystemFaults&) = delete;

    /// The next `times` calls fail with this errno.
    void fail(Call call, int error, int times = 1);
    /// Runs just before the next such call goes to the system, on its thread.
    void beforeNext(Call call, std::function<void()> action);

    /// The wrapped calls ask this: true when the call is to fail, with errno set.
    static bool refused(Call call);

  private:
    struct Plan {
        int error = 0;
        int times = 0;
        std::function<void()> action;
    };

    bool refuse(Call call);

    std::mutex lock_;
    std::map<Call, Plan> plans_;
};
