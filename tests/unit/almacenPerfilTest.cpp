#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

using namespace std::string_literals;

class ConfigAlmacen : public testing::Test {
protected:
    EntornoDoble m;
    const comun c{m.entorno};
    const std::string m_ruta = m.rutaINI();
    std::vector<std::string> m_avisos;

    void SetUp() override {
        m.ini("[S]\r\nk=1\r\n");
        m.perfil.alFallar([this](const std::string& ruta) { m_avisos.push_back(ruta); });
    }
    std::string disco() const { return m.archivos.contenido(m_ruta); }
    std::string k() { return m.valor("S", "k"); }
    void k(const std::string& texto) { m.valor("S", "k", texto); }
};

TEST_F(ConfigAlmacen, UnaOperacionEsUnReemplazo) {
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

TEST_F(ConfigAlmacen, ConLaColaLlenaEsperaCienMilisegundosDesdeLaPrimera) {
    k("2");
    m.reloj.avanzar(99);
    k("3");
    m.perfil.ocio(false);
    EXPECT_EQ(m.archivos.intentos, 0);
    m.reloj.avanzar(1);
    m.perfil.ocio(false);
    EXPECT_EQ(disco(), "[S]\r\nk=3\r\n");
    k("4");  // a new wait begins
    m.perfil.ocio(false);
    EXPECT_EQ(m.archivos.reemplazos, 1);
}

TEST_F(ConfigAlmacen, TrasUnFalloAvisaUnaVezYReintentaCadaCincoSegundos) {
    m.archivos.fallarEscritura = true;
    k("2");
    m.perfil.ocio(true);
    EXPECT_FALSE(m.perfil.pendiente());
    m.perfil.refrescar(m_ruta);
    EXPECT_EQ(k(), "2");
    k("2");  // equal, and yet tried again
    m.reloj.avanzar(100);
    m.reloj.avanzar(AlmacenPerfil::REINTENTO - 1);
    EXPECT_EQ(m.archivos.intentos, 2);
    m.reloj.avanzar(AlmacenPerfil::REINTENTO + 1);
    EXPECT_EQ(m.archivos.intentos, 4);
    EXPECT_FALSE(m.perfil.volcar());
    EXPECT_EQ(m_avisos, std::vector<std::string>{m_ruta});
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    m.archivos.fallarEscritura = false;
    m.reloj.avanzar(AlmacenPerfil::REINTENTO);
    EXPECT_EQ(disco(), "[S]\r\nk=2\r\n");
    const int intentos = m.archivos.intentos;
    m.reloj.avanzar(2 * AlmacenPerfil::REINTENTO);
    EXPECT_EQ(m.archivos.intentos, intentos) << "and no more";
    m.archivos.fallarEscritura = true;
    k("3");
    m.perfil.volcar();
    EXPECT_EQ(m_avisos.size(), 2U);
}

// In the loop of a box nobody says that the queue is empty.
TEST_F(ConfigAlmacen, TambienMientrasNadieDiceQueHayOcio) {
    m.archivos.aparteLento = true;
    k("2");
    m.reloj.avanzar(AlmacenPerfil::RETRASO_MAXIMO);
    k("3");
    m.archivos.aparteLento = false;
    m.reloj.avanzar(2 * AlmacenPerfil::RETRASO_MAXIMO);
    EXPECT_EQ(disco(), "[S]\r\nk=3\r\n");
    EXPECT_FALSE(m.perfil.pendiente());
}

TEST_F(ConfigAlmacen, MientrasSeEscribeSeSigueYNadaSePierde) {
    m.archivos.aparteLento = true;
    k("2");
    m.perfil.ocio(true);
    k("3");
    m.perfil.ocio(true);
    EXPECT_EQ(c.abrir("S").leer("k"), "3");
    EXPECT_EQ(m.archivos.intentos, 0);
    EXPECT_TRUE(m.perfil.pendiente());
    m.archivos.aparteLento = false;
    m.reloj.avanzar(99);
    m.perfil.ocio(true);
    EXPECT_EQ(disco(), "[S]\r\nk=2\r\n") << "the next one begins a tenth of a second after it";
    m.reloj.avanzar(1);
    m.perfil.ocio(true);
    EXPECT_EQ(disco(), "[S]\r\nk=3\r\n");
    EXPECT_FALSE(m.perfil.pendiente());
    // What another program saves meanwhile is replaced by what is under way.
    m.reloj.avanzar(100);
    m.archivos.aparteLento = true;
    k("3.5");
    m.perfil.ocio(true);
    m.archivos.poner(m_ruta, "[S]\r\nk=ajeno\r\n");
    EXPECT_EQ(c.abrir("S").leer("k"), "3.5");
    m.perfil.asentar();
    // One that fails and then comes right is no failure.
    m.archivos.fallarEscritura = true;
    k("3.6");
    m.reloj.avanzar(100);
    m.perfil.asentar();
    m.archivos.fallarEscritura = false;
    k("3");
    EXPECT_TRUE(m.perfil.volcar());
    EXPECT_EQ(m_avisos, std::vector<std::string>{});
    // What is put back meanwhile comes after it.
    ASSERT_TRUE(c.hacerCopiaDeINI());
    k("4");
    m.perfil.ocio(true);
    ASSERT_TRUE(c.restaurarCopiaDeINI());
    m.perfil.ocio(true);
    EXPECT_EQ(disco(), "[S]\r\nk=3\r\n");
    EXPECT_EQ(k(), "3");
}

TEST_F(ConfigAlmacen, ElAvisoPuedeVolverALlamar) {
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

TEST_F(ConfigAlmacen, VeLoQueOtroProgramaEscribio) {
    const auto leido = [&] { return c.abrir("S").leer("k"); };
    EXPECT_EQ(leido(), "1");
    m.archivos.poner(m_ruta, "[S]\r\nk=7\r\n");
    EXPECT_EQ(leido(), "7");
    const int lecturas = m.archivos.lecturas;
    k("8");
    m.archivos.poner(m_ruta, "[S]\r\nk=9\r\n");
    EXPECT_EQ(leido(), "8");
    m.perfil.ocio(true);
    EXPECT_EQ(leido(), "8");
    EXPECT_EQ(m.archivos.lecturas, lecturas);  // our own write is no change by another
    m.archivos.quitar(m_ruta);
    EXPECT_EQ(leido(), "");
}

// A file that another program holds is no empty one, and must not be replaced by our few keys.
TEST_F(ConfigAlmacen, LoQueNoSePuedeLeerNiSeVaciaNiSePisa) {
    const std::string completo = "[S]\r\nk=1\r\nz=3\r\n";
    for (const bool leidoAntes : {true, false}) {
        EntornoDoble e;
        const comun com(e.entorno);
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
    // Held while it stays as it was: ours follows.
    m.archivos.rutaIlegible = m_ruta;
    m.archivos.fallarEscritura = true;
    k("2");
    EXPECT_FALSE(m.perfil.volcar());
    m.archivos.fallarEscritura = false;
    m.archivos.rutaIlegible.clear();
    m.reloj.avanzar(AlmacenPerfil::REINTENTO);
    EXPECT_EQ(disco(), "[S]\r\nk=2\r\n");
    // Put there by another while ours could not be: that is newer.
    m.archivos.fallarEscritura = true;
    k("3");
    EXPECT_FALSE(m.perfil.volcar());
    m.archivos.fallarEscritura = false;
    m.archivos.poner(m_ruta, "[S]\r\nk=7\r\n");
    m.reloj.avanzar(AlmacenPerfil::REINTENTO);
    EXPECT_EQ(k() + disco(), "7[S]\r\nk=7\r\n");
    // What is cancelled while nothing can be read is not what was typed.
    k("8");
    m.archivos.rutaIlegible = m_ruta;
    c.descartarCambios();
    EXPECT_EQ(k(), "7");
    m.archivos.rutaIlegible.clear();

    const std::string enorme = "[S]\nk=1\n" + std::string(AlmacenPerfil::TAMANO_MAXIMO, '\n');
    m.ini(enorme);
    k("2");
    EXPECT_FALSE(m.perfil.volcar());
    EXPECT_EQ(disco().size(), enorme.size());
}

TEST_F(ConfigAlmacen, HaceLaCopiaByteAByte) {
    const std::string viejo = "[S]\nk=1\r\n; \xF1\0x"s, nuevo = "[S]\nk=2\r\n; \xF1\0x"s,
                      copia = "of an earlier session";
    const struct {
        bool archivo;
        std::string rutaQueFalla;
        bool bien;
        std::string copia;
    } casos[] = {{true, "", true, nuevo},
                 {false, "", true, ""},
                 {true, c.rutaCopia(), false, copia},
                 {false, m_ruta, false, copia},
                 {true, m_ruta, false, viejo}};  // the old file stands, and is copied
    for (const auto& caso : casos) {
        EntornoDoble e;
        const comun com(e.entorno);
        if (caso.archivo) {
            e.ini(viejo);
            e.valor("S", "k", "2");
        }
        e.archivos.poner(c.rutaCopia(), copia);
        e.archivos.rutaQueFalla = caso.rutaQueFalla;
        EXPECT_EQ(com.hacerCopiaDeINI(), caso.bien);
        EXPECT_EQ(e.archivos.contenido(c.rutaCopia()), caso.copia);
    }
}

// The settings were lost or spoilt: the copy of those that there were must outlive the first look at it.
TEST_F(ConfigAlmacen, LaUltimaCopiaConVisoresNoSePierde) {
    const std::string buena = "[VISOR_2]\nPort=3\n", mala = "\x01\xFF=[", vacia = "[VISOR_1]\nPort=\n";
    struct Caso {
        std::string copia, ini, anterior;  // "-": there is none
        std::string rutaQueFalla;
        bool bien;
    };
    const Caso casos[] = {{buena, "-", buena, "", true},       {buena, mala, buena, "", true},
                          {buena, vacia, buena, "", true},     {mala, vacia, "-", "", true},
                          {buena, buena + "#", "-", "", true}, {buena, mala, "-", c.rutaAnterior(), false}};
    for (const Caso& caso : casos) {
        EntornoDoble e;
        const comun com(e.entorno);
        if (caso.ini != "-") e.ini(caso.ini);
        e.archivos.poner(c.rutaCopia(), caso.copia);
        e.archivos.rutaQueFalla = caso.rutaQueFalla;
        for (const int vez : {1, 2}) {
            EXPECT_EQ(com.hacerCopiaDeINI(), caso.bien) << vez;
            EXPECT_EQ(e.archivos.existe(c.rutaAnterior()) ? e.archivos.contenido(c.rutaAnterior()) : "-",
                      caso.anterior);
            EXPECT_TRUE(caso.bien || e.archivos.contenido(c.rutaCopia()) == caso.copia);
        }
    }
    EntornoDoble e;
    e.archivos.poner(c.rutaCopia(), buena);
    e.archivos.rutaIlegible = c.rutaCopia();
    EXPECT_FALSE(comun(e.entorno).hacerCopiaDeINI()) << "it may well define some";
}

TEST_F(ConfigAlmacen, RestauraLaCopiaEnUnReemplazo) {
    k("2");
    EXPECT_FALSE(c.restaurarCopiaDeINI());  // no copy
    EXPECT_EQ(k(), "1") << "and yet what was cancelled is not written any more";
    k("2");
    m.archivos.poner(c.rutaCopia(), "[S]\nk=\xF1\n#\n");
    m.archivos.fallarEscritura = true;
    EXPECT_FALSE(c.restaurarCopiaDeINI());
    EXPECT_EQ(k() + disco(), "\u00F1[S]\r\nk=1\r\n") << "what was taken back is read no longer";
    m.reloj.avanzar(200);
    m.archivos.fallarEscritura = false;
    m.reloj.avanzar(AlmacenPerfil::REINTENTO);
    EXPECT_EQ(disco(), "[S]\nk=\xF1\n#\n") << "the file follows when it can";
    k("2");
    m.perfil.volcar();
    m.archivos.reemplazos = 0;
    EXPECT_TRUE(c.restaurarCopiaDeINI());
    EXPECT_EQ(m.archivos.reemplazos, 1);
    EXPECT_EQ(m.ini(), "[S]\nk=\xF1\n#\n");
    // What never reached the file needs no writing to be taken back.
    k("3");
    m.archivos.fallarEscritura = true;
    EXPECT_TRUE(c.restaurarCopiaDeINI());
    EXPECT_EQ(k(), "\u00F1");
    EXPECT_FALSE(m.perfil.pendiente());
}

}  // namespace
}  // namespace sorvanel
