#include "platform/win32/painting/fuentesWin.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/win32/base/textoWin.h"

namespace sorvanel {

namespace {

LOGFONTW descripcion(const Fuente& fuente, int altoPixeles) {
    LOGFONTW d{};
    d.lfHeight = -std::max(altoPixeles, 1);  // negative: the em, not the cell
    d.lfWeight = fuente.negrita ? FW_BOLD : FW_NORMAL;
    d.lfItalic = fuente.cursiva ? TRUE : FALSE;
    d.lfUnderline = fuente.subrayado ? TRUE : FALSE;
    d.lfCharSet = DEFAULT_CHARSET;
    d.lfOutPrecision = OUT_TT_PRECIS;
    // Grey edges, no coloured ones: digits this large are read from afar and on any panel.
    d.lfQuality = ANTIALIASED_QUALITY;
    const std::wstring nombre = aAncho(fuente.nombre);
    nombre.copy(d.lfFaceName, LF_FACESIZE - 1);
    return d;
}

bool pedirMetrica(HDC dc, wchar_t letra, UINT formato, GLYPHMETRICS& metrica) {
    const MAT2 igual{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    return GetGlyphOutlineW(dc, letra, formato, &metrica, 0, nullptr, &igual) != GDI_ERROR;
}

bool instalada(const wchar_t* nombre) {
    LOGFONTW buscada{};
    buscada.lfCharSet = DEFAULT_CHARSET;
    std::wstring_view(nombre).copy(buscada.lfFaceName, LF_FACESIZE - 1);
    bool hallada = false;
    const DCVentana pantalla(nullptr);
    EnumFontFamiliesExW(
        pantalla.get(), &buscada,
        [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM dato) -> int {
            *reinterpret_cast<bool*>(dato) = true;
            return 0;
        },
        reinterpret_cast<LPARAM>(&hallada), 0);
    return hallada;
}

}  // namespace

FuenteWin::FuenteWin(const Fuente& fuente, int altoPixeles) {
    const LOGFONTW d = descripcion(fuente, altoPixeles);
    m_fuente.cambiar(CreateFontIndirectW(&d));
    if (!m_fuente) throw std::runtime_error("CreateFontIndirect");
}

const TEXTMETRICW& FuenteWin::metrica(HDC dc) {
    if (!m_medida) m_medida = GetTextMetricsW(dc, &m_metrica) != 0;
    return m_metrica;
}

FuenteWin::Caracter FuenteWin::medir(HDC dc, wchar_t letra) {
    Caracter caracter;
    caracter.sabido = true;
    if (letra <= L' ' || letra == 0xA0) return caracter;
    caracter.conTinta = true;
    const TEXTMETRICW& m = metrica(dc);
    GLYPHMETRICS g{};
    if (!pedirMetrica(dc, letra, GGO_METRICS, g)) {
        // A bitmap font has no outlines: capitals and digits reach about so far.
        caracter.tinta = {static_cast<int>(m.tmInternalLeading), static_cast<int>(m.tmAscent)};
        return caracter;
    }
    caracter.tinta.superior = static_cast<int>(m.tmAscent - g.gmptGlyphOrigin.y);
    caracter.tinta.inferior = caracter.tinta.superior + static_cast<int>(g.gmBlackBoxY);
    return caracter;
}

bool FuenteWin::cabeEnSuCaja(HDC dc, wchar_t letra, int ancho) {
    if (letra == L' ') return true;
    GLYPHMETRICS g{};
    // With the grey of its edges.
    if (!pedirMetrica(dc, letra, GGO_GRAY8_BITMAP, g)) return false;
    return g.gmptGlyphOrigin.x >= 0 && g.gmptGlyphOrigin.x + static_cast<int>(g.gmBlackBoxX) <= ancho;
}

Tinta FuenteWin::tinta(HDC dc, std::wstring_view texto) {
    Tinta total;
    bool alguna = false;
    for (const wchar_t letra : texto) {
        Caracter caracter;
        if (letra < m_comunes.size()) {
            Caracter& comun = m_comunes[letra];
            if (!comun.sabido) comun = medir(dc, letra);
            caracter = comun;
        } else {
            caracter = medir(dc, letra);
        }
        if (!caracter.conTinta) continue;
        total.superior = alguna ? std::min(total.superior, caracter.tinta.superior) : caracter.tinta.superior;
        total.inferior = alguna ? std::max(total.inferior, caracter.tinta.inferior) : caracter.tinta.inferior;
        alguna = true;
    }
    if (!alguna) {
        const TEXTMETRICW& m = metrica(dc);
        total = {static_cast<int>(m.tmInternalLeading), static_cast<int>(m.tmAscent)};
    }
    return total;
}

std::shared_ptr<FuenteWin> FuentesWin::pedir(const Fuente& fuente, int altoPixeles) {
    const auto igual = [&](const Entrada& e) {
        return e.alto == altoPixeles && e.fuente.nombre == fuente.nombre && e.fuente.negrita == fuente.negrita &&
               e.fuente.cursiva == fuente.cursiva && e.fuente.subrayado == fuente.subrayado;
    };
    if (const auto donde = std::find_if(m_entradas.begin(), m_entradas.end(), igual); donde != m_entradas.end()) {
        std::rotate(donde, donde + 1, m_entradas.end());
        return m_entradas.back().hecha;
    }
    m_entradas.push_back({fuente, altoPixeles, std::make_shared<FuenteWin>(fuente, altoPixeles)});
    std::shared_ptr<FuenteWin> hecha = m_entradas.back().hecha;
    podar();
    return hecha;
}

void FuentesWin::podar() {
    const auto libre = [](const Entrada& e) { return e.hecha.use_count() == 1; };
    auto sobran = std::count_if(m_entradas.begin(), m_entradas.end(), libre);
    std::erase_if(m_entradas,
                  [&](const Entrada& e) { return libre(e) && sobran-- > static_cast<std::ptrdiff_t>(SOBRANTES); });
}

SIZE extension(HDC dc, std::wstring_view letras) {
    SIZE medida{};
    GetTextExtentPoint32W(dc, letras.data(), static_cast<int>(letras.size()), &medida);
    return medida;
}

MedidaTexto medirTexto(HDC dc, FuenteWin& fuente, const Escala& escala, std::wstring_view letras) {
    const std::wstring_view medidas = letras.empty() ? std::wstring_view(L" ") : letras;
    const SIZE medida = extension(dc, medidas);
    const Tinta tinta = fuente.tinta(dc, medidas);
    return {letras.empty() ? 0.0F : escala.x.aTwips(medida.cx), escala.y.aTwips(medida.cy),
            escala.y.aTwips(tinta.superior), escala.y.aTwips(tinta.inferior)};
}

Fuente fuenteInterfaz(float alto, bool negrita) {
    Fuente fuente;
    fuente.nombre = instalada(L"Segoe UI") ? "Segoe UI" : "Tahoma";
    fuente.alto = alto;
    fuente.negrita = negrita;
    return fuente;
}

}  // namespace sorvanel
