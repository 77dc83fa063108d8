#include <gmock/gmock.h>
#include <windows.h>

#include "harness/red.h"

namespace {

// Rectangles are compared in device pixels, so this process must see them too. Windows 7 lacks it.
void verPixelesVerdaderos() {
    using Fijar = BOOL(WINAPI*)(HANDLE);
    const auto modulo = GetModuleHandleW(L"user32.dll");
    const auto direccion = modulo ? GetProcAddress(modulo, "SetProcessDpiAwarenessContext") : nullptr;
    if (direccion == nullptr) return;
    constexpr LONG_PTR porMonitor2 = -4;
    reinterpret_cast<Fijar>(reinterpret_cast<void*>(direccion))(reinterpret_cast<HANDLE>(porMonitor2));
}

}  // namespace

int main(int argc, char** argv) {
    verPixelesVerdaderos();
    const sorvanel::pruebas::Winsock winsock;
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
