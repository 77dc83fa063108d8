#pragma once

#include "platform/monitor.h"

namespace sorvanel {

// Any step that fails leaves out what it would have given, without a word: a monitor is then empty, and on
// a system that cannot list its monitors the program runs with none.
class MonitoresWin : public SistemaMonitores {
public:
    std::vector<Monitor> enumerar() override;
};

}  // namespace sorvanel
