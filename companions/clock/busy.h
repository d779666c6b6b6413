// Processes that do nothing but keep the machine busy.
#pragma once

#include <vector>

#include <sys/types.h>

class BusyProcesses {
public:
    explicit BusyProcesses(int count);
    // Ends them; they end as well when this program does in any other way.
    ~BusyProcesses();
    BusyProcesses(const BusyProcesses&) = delete;
    BusyProcesses& operator=(const BusyProcesses&) = delete;

private:
    std::vector<pid_t> processes;
};
