#include "harness/monitores.h"

namespace sorvanel::pruebas {

std::vector<MonitorVisto> monitores() {
    std::vector<MonitorVisto> vistos;
    EnumDisplayMonitors(
        nullptr, nullptr,
        [](HMONITOR monitor, HDC, LPRECT, LPARAM dato) -> BOOL {
            MONITORINFO info{};
            info.cbSize = sizeof info;
            GetMonitorInfoW(monitor, &info);
            reinterpret_cast<std::vector<MonitorVisto>*>(dato)->push_back(
                {info.rcMonitor, (info.dwFlags & MONITORINFOF_PRIMARY) != 0});
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&vistos));
    return vistos;
}

}  // namespace sorvanel::pruebas
