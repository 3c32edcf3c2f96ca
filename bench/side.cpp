// SPDX-License-Identifier: MIT
#include "bench/side.h"

#include "bench/baseline.h"
#include "bench/pluginside.h"

bench::Side::~Side() = default;

std::unique_ptr<bench::Side> bench::makeSide(SideKind kind, MemoryHost* host)
{
    if (kind == SideKind::Plugin)
        return std::make_unique<PluginSide>(host);
    return std::make_unique<Baseline>(host);
}
