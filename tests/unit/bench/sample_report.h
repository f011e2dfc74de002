#pragma once

#include "bench/report/report.h"

/// Two rounds with one contestant of each role, and few figures.
bench::Report sampleReport();
