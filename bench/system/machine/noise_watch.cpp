#include "bench/system/machine/noise_watch.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "bench/system/machine/processor_time.h"

namespace bench {
NoiseWatch::Look NoiseWatch::look() {
    const auto ticks = static_cast<double>(::sysconf(_SC_CLK_TCK));
    std::ifstream stat("/proc/stat");
    std::string name;
    double user = 0, nice = 0, system = 0, idle = 0, waiting = 0, irq = 0, softIrq = 0, steal = 0;
    stat >> name >> user >> nice >> system >> idle >> waiting >> irq >> softIrq >> steal;
    return {Clock::now(), (user + nice + system + irq + softIrq) / ticks, steal / ticks,
            usedSeconds(RUSAGE_SELF) + usedSeconds(RUSAGE_CHILDREN)};
}

void NoiseWatch::begin() {
    begin_ = look();
}

void NoiseWatch::end() {
    const Look now = look();
    const double took = secondsBetween(begin_.time, now.time);
    const double stolen = now.stolen - begin_.stolen;
    const double other = std::max(0.0, now.busy - begin_.busy - (now.own - begin_.own));
    seconds_ += took;
    stolen_ += stolen;
    other_ += other;
    worst_.worstSteal = std::max(worst_.worstSteal, stolen / took);
    worst_.worstOtherLoad = std::max(worst_.worstOtherLoad, other / took);
}

Noise NoiseWatch::noise() const {
    if (seconds_ == 0) return {};
    return {stolen_ / seconds_, worst_.worstSteal, other_ / seconds_, worst_.worstOtherLoad};
}

}  // namespace bench
