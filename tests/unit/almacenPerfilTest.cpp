#include <gtest/gtest.h>

#include <sstream>

#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

using namespace std::string_literals;

class AlmacenPerfilTest : public testing::Test {
protected:
    EntornoDoble m;
    const comun& c = m.com;
    const std::string m_ruta = m.rutaINI();
    std::vector<std::string> m_avisos;

    void SetUp() override {
        m.ini("[S]\r\nk=1\r\n");
        m.perfil.alFallar([this](const std::string& ruta) { m_avisos.push_back(ruta); });
    }
    std::string disco() const { return m.archivos.contenido(m_ruta); }
    std::string k() { return m.valor("S", "k"); }
    void k(const std::string& texto) { m.valor("S", "k", texto); }
    int m_lecturas = 0;

    std::string ver(const std::string& que);
    bool hacer(const std::string& que, const std::string& valor);
};

TEST_F(AlmacenPerfilTest, UnaOperacionEsUnReemplazo) {
    AccesorINI uno = c.abrir("S");
    const AccesorINI otro = c.abrir("s");
    uno.escribir("k", "2");
    uno.escribir("j", "3");
    EXPECT_EQ(otro.leer("K"), "2");
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    EXPECT_TRUE(m.perfil.pendiente());
    m.perfil.ocio(true);
    EXPECT_EQ(disco(), "[S]\r\nk=2\r\nj=3\r\n");
    // What changes nothing is not written.
    uno.escribir("K", "2");
    uno.borrarClave("no");
    m.perfil.borrarSeccion(m_ruta, "no");
    EXPECT_FALSE(m.perfil.pendiente());
    m.perfil.ocio(true);
    EXPECT_TRUE(m.perfil.volcar());
    EXPECT_EQ(m.archivos.intentos, 1);
}

// What is seen: "k" as it is held, and as who opens the file reads it; "d" on the disk, how many attempts, notices,
// readings.
std::string AlmacenPerfilTest::ver(const std::string& que) {
    const std::map<std::string, std::function<std::string()>> hay = {
        {"k", [&] { return k(); }},
        {"abierto", [&] { return c.abrir("S").leer("k"); }},
        {"d", [&] { return disco().substr(0, 7) == "[S]\r\nk=" ? disco().substr(7, disco().size() - 9) : disco(); }},
        {"intentos", [&] { return std::to_string(m.archivos.intentos); }},
        {"avisos", [&] { return std::to_string(m_avisos.size()); }},
        {"pendiente", [&] { return std::string(m.perfil.pendiente() ? "si" : "no"); }},
        {"leido", [&] { return std::to_string(m.archivos.lecturas - m_lecturas); }}};
    return hay.at(que)();
}

bool AlmacenPerfilTest::hacer(const std::string& que, const std::string& valor) {
    const std::map<std::string, std::function<bool()>> actos = {
        {"k", [&] { return k(valor), true; }},
        {"ajeno", [&] { return m.archivos.poner(m_ruta, "[S]\r\nk=" + valor + "\r\n"), true; }},
        {"quitar", [&] { return m.archivos.quitar(m_ruta), true; }},
        {"ocio", [&] { return m.perfil.ocio(true), true; }},
        {"prisa", [&] { return m.perfil.ocio(false), true; }},
        {"lento", [&] { return m.archivos.aparteLento = true; }},
        {"listo", [&] { return !(m.archivos.aparteLento = false); }},
        {"falla", [&] { return m.archivos.fallarEscritura = true; }},
        {"puede", [&] { return !(m.archivos.fallarEscritura = false); }},
        {"retenido", [&] { return m.archivos.rutaIlegible = m_ruta, true; }},
        {"suelto", [&] { return m.archivos.rutaIlegible.clear(), true; }},
        {"contar", [&] { return m_lecturas = m.archivos.lecturas, true; }},
        {"asentar", [&] { return m.perfil.asentar(), true; }},
        {"descartar", [&] { return c.descartarCambios(), true; }},
        {"volcar", [&] { return m.perfil.volcar(); }},
        {"copia", [&] { return c.hacerCopiaDeINI(); }},
        {"restaurar", [&] { return c.restaurarCopiaDeINI(); }}};
    return actos.at(que)();
}

// Word by word: "k=2" is written, "+100" milliseconds pass, "ajeno=7" is what another program saves, "!": it answers
// false. "k?2": that is seen.
class Guiones : public AlmacenPerfilTest, public testing::WithParamInterface<const char*> {};

TEST_P(Guiones, sigueElArchivo) {
    std::istringstream palabras(GetParam());
    for (std::string palabra; palabras >> palabra;) {
        const std::size_t corte = std::min(palabra.find_first_of("=?!"), palabra.size());
        const std::string que = palabra.substr(0, corte), resto = palabra.substr(std::min(corte + 1, palabra.size()));
        if (palabra[0] == '+') {
            m.reloj.avanzar(std::stoi(palabra));
        } else if (palabra.find('?') != std::string::npos) {
            EXPECT_EQ(ver(que), resto) << palabra << " in " << GetParam();
        } else {
            EXPECT_EQ(hacer(que, resto), !palabra.ends_with('!')) << palabra << " in " << GetParam();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    AlmacenPerfil, Guiones,
    testing::Values(
        // With a full queue it waits a tenth of a second from the first; also where nobody asks, as in a box's loop.
        "k=2 +99 k=3 prisa intentos?0 +1 prisa d?3 k=4 prisa intentos?1",  //
        "lento k=2 +100 k=3 listo +200 d?3 pendiente?no", "k=2 +99 k=3 +1 d?3",
        // What fails is told once, and tried each five seconds; also when it is written again.
        "falla k=2 ocio pendiente?no abierto?2 k=2 +100 +4999 intentos?2 +5001 intentos?4 volcar! avisos?1 d?1 puede "
        "+5000 "
        "d?2 "
        "intentos?6 +10000 intentos?6 falla k=3 volcar! avisos?2",
        "lento falla k=2 +100 asentar puede k=3 volcar avisos?0 d?3",
        // While one is written the next waits, and what another saves is replaced.
        "lento k=2 ocio k=3 ocio abierto?3 intentos?0 pendiente?si listo +99 ocio d?2 +1 ocio d?3 pendiente?no",
        "lento k=3 ocio ajeno=7 abierto?3 asentar d?3",
        // What another wrote is seen, our own is no change.
        "abierto?1 ajeno=7 abierto?7 contar k=8 ajeno=9 abierto?8 ocio abierto?8 leido?0 quitar abierto?",
        // Held while it stays as it was: ours follows. Put there by another while ours could not be: that is newer.
        "retenido ajeno=2 abierto?1 contar abierto?1 leido?0 +1000 abierto?1 leido?1 suelto +1000 abierto?2",
        "retenido falla k=2 volcar! puede suelto +5000 d?2",  //
        "falla k=3 volcar! puede ajeno=7 +5000 k?7 d?7",
        // What is cancelled is not what was typed, though nothing can be read, nor is it written any more.
        "k=8 retenido descartar k?1",  //
        "k=2 restaurar! k?1 +200 d?1",
        // The copy is put back in one replacement, after what is under way; later, when it cannot be now; and what
        // never reached the file needs no writing.
        "copia k=2 volcar intentos?2 restaurar intentos?3 d?1",  //
        "copia lento k=4 ocio restaurar ocio d?1 k?1", "copia k=2 volcar falla restaurar! k?1 d?2 +200 puede +5000 d?1",
        "copia k=3 falla restaurar k?1 pendiente?no"));

TEST_F(AlmacenPerfilTest, ElAvisoPuedeVolverALlamar) {
    m.archivos.fallarEscritura = true;
    m.perfil.alFallar([&](const std::string& ruta) {
        m_avisos.push_back(ruta);
        k("3");
        m.perfil.ocio(true);
        m.perfil.descartar(ruta);
    });
    k("2");
    m.perfil.ocio(true);
    EXPECT_EQ(m_avisos.size(), 1U);
    EXPECT_EQ(k(), "1");
}

// A file that another program holds is no empty one, and must not be replaced by our few keys.
TEST_F(AlmacenPerfilTest, LoQueNoSePuedeLeerNiSeVaciaNiSePisa) {
    const std::string completo = "[S]\r\nk=1\r\nz=3\r\n";
    for (const bool leidoAntes : {true, false}) {
        EntornoDoble e;
        const comun& com = e.com;
        const std::string ruta = e.rutaINI();
        e.archivos.poner(ruta, completo);
        EXPECT_TRUE(!leidoAntes || com.abrir("S").leer("k") == "1");
        e.archivos.poner(ruta, completo + "y=4\r\n");
        e.archivos.rutaIlegible = ruta;
        e.archivos.selloIncierto = leidoAntes;
        EXPECT_EQ(com.ilegible(), ruta + " (retenido)");
        EXPECT_EQ(com.abrir("S").leer("k"), leidoAntes ? "1" : "") << "what was read before stays";
        EXPECT_FALSE(com.hacerCopiaDeINI());
        EXPECT_FALSE(e.archivos.existe(com.rutaCopia()));
        // Not written, neither now nor later: somebody else has written it since it was read.
        std::vector<std::string> avisos;
        e.perfil.alFallar([&](const std::string& cual) { avisos.push_back(cual); });
        com.abrir("S").escribir("j", "2");
        e.reloj.avanzar(60'000);
        EXPECT_EQ(e.perfil.volcar(), !leidoAntes);
        EXPECT_EQ(avisos.size(), leidoAntes ? 1U : 0U);
        EXPECT_EQ(e.archivos.contenido(ruta), completo + "y=4\r\n");
        e.archivos.rutaIlegible.clear();
        e.reloj.avanzar(AlmacenPerfil::REINTENTO);
        EXPECT_EQ(com.ilegible(), "");
        EXPECT_EQ(e.archivos.contenido(ruta), completo + "y=4\r\n");
        EXPECT_EQ(com.abrir("S").leer("y") + com.abrir("S").leer("j"), "4");
        EXPECT_EQ(avisos.size(), leidoAntes ? 2U : 0U) << "and whoever typed it is told";
    }
    const std::string enorme = "[S]\nk=1\n" + std::string(AlmacenPerfil::TAMANO_MAXIMO, '\n');
    m.ini(enorme);
    EXPECT_FALSE(c.hacerCopiaDeINI()) << "nobody configures what cannot be read";
    k("2");
    EXPECT_FALSE(m.perfil.volcar());
    EXPECT_EQ(disco().size(), enorme.size());
}

TEST_F(AlmacenPerfilTest, HaceLaCopiaByteAByte) {
    const std::string viejo = "[S]\nk=1\r\n; \xF1\0x"s, nuevo = "[S]\nk=2\r\n; \xF1\0x"s;
    const std::tuple<bool, std::string, bool, std::string> casos[] = {
        {true, "", true, nuevo},
        {false, "", true, ""},
        {true, c.rutaCopia(), false, "earlier"},
        {false, m_ruta, false, "earlier"},
        {true, m_ruta, false, viejo}};  // the old file stands, and is copied
    for (const auto& [hayArchivo, rutaQueFalla, bien, copia] : casos) {
        EntornoDoble e;
        if (hayArchivo) {
            e.ini(viejo);
            e.valor("S", "k", "2");
        }
        e.archivos.poner(c.rutaCopia(), "earlier");
        e.archivos.rutaQueFalla = rutaQueFalla;
        EXPECT_EQ(e.com.hacerCopiaDeINI(), bien);
        EXPECT_EQ(e.archivos.contenido(c.rutaCopia()), copia);
        if (!bien) continue;
        e.valor("S", "k", "3");
        e.perfil.volcar();
        EXPECT_TRUE(e.com.restaurarCopiaDeINI());
        EXPECT_EQ(e.archivos.contenido(e.rutaINI()), copia);
    }
}

// The settings were lost or spoilt: the copy of those that there were must outlive the first look at it.
TEST_F(AlmacenPerfilTest, LaUltimaCopiaConVisoresNoSePierde) {
    const std::string buena = "[VISOR_2]\nPort=3\n", mala = "\x01\xFF=[", vacia = "[VISOR_1]\nPort=\n";
    // The copy, the file, then the copy before; "-": there is none.
    const std::tuple<std::string, std::string, std::string, std::string> casos[] = {
        {buena, "-", buena, ""}, {buena, mala, buena, ""},      {buena, vacia, buena, ""},
        {mala, vacia, "-", ""},  {buena, buena + "#", "-", ""}, {buena, mala, "-", c.rutaAnterior()}};
    for (const auto& [copia, ini, anterior, rutaQueFalla] : casos) {
        EntornoDoble e;
        if (ini != "-") e.ini(ini);
        e.archivos.poner(c.rutaCopia(), copia);
        e.archivos.rutaQueFalla = rutaQueFalla;
        for (const int vez : {1, 2}) {
            EXPECT_EQ(e.com.hacerCopiaDeINI(), rutaQueFalla.empty()) << vez;
            EXPECT_EQ(e.archivos.existe(c.rutaAnterior()) ? e.archivos.contenido(c.rutaAnterior()) : "-", anterior);
            EXPECT_TRUE(rutaQueFalla.empty() || e.archivos.contenido(c.rutaCopia()) == copia);
        }
    }
    m.archivos.poner(c.rutaCopia(), buena);
    m.archivos.rutaIlegible = c.rutaCopia();
    EXPECT_FALSE(c.hacerCopiaDeINI()) << "it may well define some";
}

}  // namespace
}  // namespace sorvanel
