// The least that could do it: a window over the monitor, painted once; in the other modes it also takes 64
// indicators' frames, or the concentrator's lines, and prints each weight in its cell with TextOut. It checks nothing,
// keeps nothing and repaints nothing.

// Before windows.h.
#include <winsock2.h>

#include "desnudo.h"

#include <array>
#include <cstdio>
#include <string>

namespace sorvanel::medidas::desnudo {
namespace {

constexpr int VISORES = 64;

struct Estado {
    bool muestra = false;  // a sample weight in the middle
    bool datagramas = false;
    int filas = 8, columnas = 8;
    int alto = 0, letra = 0;  // of all cells together, and of the font, pixels
    std::array<SOCKET, VISORES> zocalos{};
    std::string bufer;
    long cuantas = 0;
    HDC dc = nullptr;
    SIZE monitor{};
};

void elegirLetra(HDC dc, int alto) {
    SelectObject(dc, CreateFontW(-alto, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                 CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"Arial"));
    SetTextColor(dc, COLOR_TEXTO);
    SetBkColor(dc, RGB(0, 0, 0));
}

void imprimir(Estado& estado, int visor, const char* cifras, int cuantas) {
    const int x = estado.monitor.cx * (visor % estado.columnas) / estado.columnas;
    const int y = estado.alto * (2 * (visor / estado.columnas) + 1) / (2 * estado.filas) - estado.letra / 2;
    TextOutA(estado.dc, x, y, cifras, cuantas);
    ++estado.cuantas;
}

void tomarTrama(Estado& estado, SOCKET zocalo) {
    std::array<char, 512> datos{};
    const int leidos = recv(zocalo, datos.data(), static_cast<int>(datos.size()), 0);
    if (leidos != 13) return;
    for (int i = 0; i < VISORES; ++i)
        if (estado.zocalos[static_cast<std::size_t>(i)] == zocalo) return imprimir(estado, i, datos.data() + 4, 5);
}

// "01/05 -- 00000123 00000000"
void tomarLineas(Estado& estado, SOCKET zocalo) {
    std::array<char, 16384> datos{};
    const int leidos = recv(zocalo, datos.data(), static_cast<int>(datos.size()), 0);
    if (leidos <= 0) return;
    estado.bufer.append(datos.data(), static_cast<std::size_t>(leidos));
    if (estado.bufer.ends_with("LIN>")) send(zocalo, "REP\r", 4, 0);
    if (estado.bufer.ends_with('>')) estado.bufer.clear();
    std::size_t inicio = 0;
    for (std::size_t fin = 0; (fin = estado.bufer.find("\r\n", inicio)) != std::string::npos; inicio = fin + 2) {
        const char* const linea = estado.bufer.data() + inicio;
        if (fin - inicio == 26) imprimir(estado, (linea[3] - '0') * 10 + linea[4] - '0' - 1, linea + 12, 5);
    }
    estado.bufer.erase(0, inicio);
}

sockaddr_in direccion(unsigned long equipo, int puerto) {
    sockaddr_in lugar{};
    lugar.sin_family = AF_INET;
    lugar.sin_addr.s_addr = htonl(equipo);
    lugar.sin_port = htons(static_cast<u_short>(puerto));
    return lugar;
}

void enlazar(Estado& estado, HWND ventana, int puerto) {
    estado.datagramas = true;
    for (int i = 0; i < estado.filas * estado.columnas; ++i) {
        const SOCKET zocalo = socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP);
        const int reserva = 256 * 1024;
        setsockopt(zocalo, SOL_SOCKET, SO_RCVBUF, reinterpret_cast<const char*>(&reserva), sizeof reserva);
        const sockaddr_in propia = direccion(INADDR_ANY, puerto + i);
        bind(zocalo, reinterpret_cast<const sockaddr*>(&propia), sizeof propia);
        WSAAsyncSelect(zocalo, ventana, HAY_DATOS, FD_READ);
        estado.zocalos[static_cast<std::size_t>(i)] = zocalo;
    }
}

void conectar(HWND ventana, int puerto) {
    const SOCKET zocalo = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    const sockaddr_in concentrador = direccion(INADDR_LOOPBACK, puerto);
    connect(zocalo, reinterpret_cast<const sockaddr*>(&concentrador), sizeof concentrador);
    WSAAsyncSelect(zocalo, ventana, HAY_DATOS, FD_READ);
}

void pintar(const Estado& estado, HWND ventana) {
    PAINTSTRUCT pintado{};
    const HDC dc = BeginPaint(ventana, &pintado);
    FillRect(dc, &pintado.rcPaint, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    if (estado.muestra) {
        const int alto = estado.monitor.cy / 2;
        elegirLetra(dc, alto);
        TextOutA(dc, 0, (estado.monitor.cy - alto) / 2, "88888", 5);
    }
    EndPaint(ventana, &pintado);
}

LRESULT CALLBACK procesar(HWND ventana, UINT mensaje, WPARAM w, LPARAM l) {
    auto* const estado = reinterpret_cast<Estado*>(GetWindowLongPtrW(ventana, GWLP_USERDATA));
    switch (mensaje) {
        case WM_PAINT:
            pintar(*estado, ventana);
            return 0;
        case HAY_DATOS:
            if (estado->datagramas) {
                tomarTrama(*estado, static_cast<SOCKET>(w));
            } else {
                tomarLineas(*estado, static_cast<SOCKET>(w));
            }
            return 0;
        case CUANTAS:
            return estado->cuantas;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(ventana, mensaje, w, l);
    }
}

HWND crearVentana(HINSTANCE programa, Estado& estado) {
    estado.monitor = {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    WNDCLASSW clase{};
    clase.style = CS_OWNDC;
    clase.lpfnWndProc = procesar;
    clase.hInstance = programa;
    clase.lpszClassName = L"SorvanelDesnudo";
    RegisterClassW(&clase);
    const HWND ventana = CreateWindowExW(0, clase.lpszClassName, L"", WS_POPUP, 0, 0, estado.monitor.cx,
                                         estado.monitor.cy, nullptr, nullptr, programa, nullptr);
    SetWindowLongPtrW(ventana, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&estado));
    return ventana;
}

int ejecutar(HINSTANCE programa) {
    std::array<wchar_t, 64> orden{};
    GetEnvironmentVariableW(ORDEN, orden.data(), static_cast<DWORD>(orden.size()));
    std::array<wchar_t, 16> modo{};
    int puerto = 0;
    Estado estado;
    if (std::swscanf(orden.data(), L"%15ls %d %d %d %d %d", modo.data(), &puerto, &estado.filas, &estado.columnas,
                     &estado.alto, &estado.letra) < 2 ||
        estado.filas * estado.columnas > VISORES)
        return 2;
    const std::wstring nombre = modo.data();
    estado.muestra = nombre == L"ventana";
    const bool oculta = nombre == L"oculta";
    const HWND ventana = crearVentana(programa, estado);
    if (!estado.muestra && !oculta) {
        WSADATA datos{};
        WSAStartup(MAKEWORD(2, 2), &datos);
        estado.dc = GetDC(ventana);
        if (estado.alto == 0) estado.alto = estado.monitor.cy;
        if (estado.letra == 0) estado.letra = estado.alto / estado.filas / 2;
        elegirLetra(estado.dc, estado.letra);
        if (nombre == L"udp") {
            enlazar(estado, ventana, puerto);
        } else {
            conectar(ventana, puerto);
        }
    }
    if (!oculta) ShowWindow(ventana, SW_SHOW);
    UpdateWindow(ventana);
    MSG mensaje{};
    while (GetMessageW(&mensaje, nullptr, 0, 0) > 0) DispatchMessageW(&mensaje);
    return 0;
}

}  // namespace
}  // namespace sorvanel::medidas::desnudo

int WINAPI wWinMain(HINSTANCE programa, HINSTANCE, PWSTR, int) {
    return sorvanel::medidas::desnudo::ejecutar(programa);
}
