#include "platform/win32/system/dialogosSistemaWin.h"

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/win32/base/manejadores.h"
#include "platform/win32/base/textoWin.h"

namespace sorvanel {

namespace {

constexpr float PUNTOS_POR_PULGADA = 72;
// Places that the colours mixed by the operator keep, however many others lie at hand.
constexpr std::size_t PROPIOS_SEGUROS = 4;

// The em of so many points, as the system's dialog counts it: by the screen's own resolution.
LONG altoDe(float puntos) {
    const DCVentana pantalla(nullptr);
    const auto resolucion = static_cast<float>(pantalla ? GetDeviceCaps(pantalla.get(), LOGPIXELSY) : 96);
    return -static_cast<LONG>(std::lround(puntos * resolucion / PUNTOS_POR_PULGADA));
}

LOGFONTW descripcion(const FuenteElegida& fuente) {
    LOGFONTW d{};
    d.lfHeight = altoDe(fuente.puntos);
    d.lfWeight = fuente.negrita ? FW_BOLD : FW_NORMAL;
    d.lfItalic = fuente.cursiva ? TRUE : FALSE;
    d.lfUnderline = fuente.subrayado ? TRUE : FALSE;
    d.lfCharSet = DEFAULT_CHARSET;
    aAncho(fuente.nombre).copy(d.lfFaceName, LF_FACESIZE - 1);
    return d;
}

// The name of the font that the system really takes. Of one that is not installed its dialog would show
// neither name nor style nor size.
std::wstring nombreEfectivo(const LOGFONTW& descripcion) {
    const DCVentana pantalla(nullptr);
    const FuenteGDI fuente(CreateFontIndirectW(&descripcion));
    if (!pantalla || !fuente) return descripcion.lfFaceName;
    const Seleccion seleccion(pantalla.get(), fuente.get());
    wchar_t nombre[LF_FACESIZE] = {};
    return GetTextFaceW(pantalla.get(), LF_FACESIZE, nombre) > 0 ? nombre : descripcion.lfFaceName;
}

// The system offers underlining only together with what the message has not: it is hidden, or what is chosen there
// would be dropped in silence.
UINT_PTR CALLBACK ocultarLoQueNoHay(HWND ventana, UINT mensaje, WPARAM, LPARAM) noexcept {
    if (mensaje != WM_INITDIALOG) return 0;
    constexpr int TACHADO = chx1, ROTULO_COLOR = stc4, COLOR = cmb4;
    for (const int id : {TACHADO, ROTULO_COLOR, COLOR}) {
        if (const HWND control = GetDlgItem(ventana, id)) ShowWindow(control, SW_HIDE);
    }
    return 0;
}

}  // namespace

std::optional<Color> DialogosSistemaWin::elegirColor(Color inicial, std::span<const Color> aMano) {
    std::array<COLORREF, COLORES_A_MANO> ofrecidos{};
    ofrecidos.fill(static_cast<COLORREF>(BLANCO));
    std::vector<COLORREF> todos;
    const std::size_t sitio = ofrecidos.size() - std::min(m_propios.size(), PROPIOS_SEGUROS);
    for (const Color color : aMano.first(std::min(aMano.size(), sitio)))
        todos.push_back(static_cast<COLORREF>(colorPintable(color)));
    for (const COLORREF color : m_propios) {
        if (std::find(todos.begin(), todos.end(), color) == todos.end()) todos.push_back(color);
    }
    std::copy_n(todos.begin(), std::min(todos.size(), ofrecidos.size()), ofrecidos.begin());
    const auto antes = ofrecidos;
    const auto eleccion = elegirColor(inicial, ofrecidos);
    for (std::size_t i = 0; i < ofrecidos.size(); ++i) {
        if (ofrecidos[i] == antes[i]) continue;
        std::erase(m_propios, ofrecidos[i]);
        m_propios.insert(m_propios.begin(), ofrecidos[i]);
    }
    return eleccion;
}

std::optional<Color> DialogosSistemaWin::elegirColor(Color inicial, std::array<COLORREF, COLORES_A_MANO>& ofrecidos) {
    const AvisosWin::Apertura apertura(m_avisos);
    CHOOSECOLORW pedido{};
    pedido.lStructSize = sizeof pedido;
    pedido.hwndOwner = apertura.propietaria();
    pedido.rgbResult = static_cast<COLORREF>(colorPintable(inicial));
    pedido.lpCustColors = ofrecidos.data();
    pedido.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    // Cancelled, it may have written into the request all the same.
    if (!ChooseColorW(&pedido)) return std::nullopt;
    return colorPintable(static_cast<Color>(pedido.rgbResult));
}

bool DialogosSistemaWin::elegirFuente(FuenteElegida& fuente) {
    LOGFONTW letra = descripcion(fuente);
    const std::wstring propuesto = nombreEfectivo(letra);
    propuesto.copy(letra.lfFaceName, LF_FACESIZE - 1);
    letra.lfFaceName[std::min<std::size_t>(propuesto.size(), LF_FACESIZE - 1)] = L'\0';
    const AvisosWin::Apertura apertura(m_avisos);
    CHOOSEFONTW pedido{};
    pedido.lStructSize = sizeof pedido;
    pedido.hwndOwner = apertura.propietaria();
    pedido.lpLogFont = &letra;
    pedido.Flags =
        CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT | CF_FORCEFONTEXIST | CF_NOVERTFONTS | CF_ENABLEHOOK;
    pedido.lpfnHook = &ocultarLoQueNoHay;
    if (!ChooseFontW(&pedido)) return false;
    // A name that the user left as it was stays what it was.
    if (propuesto != letra.lfFaceName) fuente.nombre = aUtf8(letra.lfFaceName);
    fuente.puntos = static_cast<float>(pedido.iPointSize) / 10;
    fuente.negrita = letra.lfWeight >= FW_SEMIBOLD;
    fuente.cursiva = letra.lfItalic != 0;
    fuente.subrayado = letra.lfUnderline != 0;
    return true;
}

}  // namespace sorvanel
