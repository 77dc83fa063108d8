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

TEST_F(ConfigAlmacen, TrasUnFalloAvisaUnaVezYReintentaConLaSiguienteEscritura) {
    m.archivos.fallarEscritura = true;
    k("2");
    m.perfil.ocio(true);
    m.reloj.avanzar(1000);
    m.perfil.ocio(false);
    EXPECT_EQ(m.archivos.intentos, 1);
    EXPECT_FALSE(m.perfil.pendiente());
    m.perfil.refrescar(m_ruta);
    EXPECT_EQ(k(), "2");
    k("2");  // equal, and yet tried again
    m.perfil.ocio(true);
    EXPECT_EQ(m.archivos.intentos, 2);
    EXPECT_FALSE(m.perfil.volcar());
    EXPECT_EQ(m_avisos, std::vector<std::string>{m_ruta});
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    m.archivos.fallarEscritura = false;
    EXPECT_TRUE(m.perfil.volcar());
    EXPECT_EQ(disco(), "[S]\r\nk=2\r\n");
    m.archivos.fallarEscritura = true;
    k("3");
    m.perfil.volcar();
    EXPECT_EQ(m_avisos.size(), 2U);
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
    // One that fails and then comes right is no failure.
    m.archivos.fallarEscritura = true;
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
        m.perfil.olvidar(ruta);  // what is pending too
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

// A file that another program holds for a moment must not be replaced by our few keys.
TEST_F(ConfigAlmacen, LoQueNoSePuedeLeerNoSePisa) {
    m.archivos.fallarLectura = true;
    EXPECT_EQ(k(), "");
    m.perfil.borrarClave(m_ruta, "S", "k");
    m.valor("S", "j", "2");
    EXPECT_EQ(m.valor("S", "j"), "2");
    m.perfil.ocio(true);
    EXPECT_EQ(m_avisos.size(), 1U);
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    m.archivos.poner(m_ruta, "[S]\r\nk=1\r\nz=3\r\n");
    m.archivos.fallarLectura = false;
    m.valor("S", "i", "4");
    m.perfil.volcar();
    EXPECT_EQ(disco(), "[S]\r\nz=3\r\nj=2\r\ni=4\r\n");

    const std::string enorme = "[S]\nk=1\n" + std::string(AlmacenPerfil::TAMANO_MAXIMO, '\n');
    m.ini(enorme);
    EXPECT_EQ(k(), "");
    k("2");
    EXPECT_FALSE(m.perfil.volcar());
    EXPECT_EQ(disco().size(), enorme.size());
}

TEST_F(ConfigAlmacen, HaceLaCopiaByteAByte) {
    const std::string viejo = "[S]\nk=1\r\n; \xF1\0x"s, nuevo = "[S]\nk=2\r\n; \xF1\0x"s;
    const struct {
        bool archivo;
        std::string rutaQueFalla;
        bool bien;
        std::string copia;  // "-": there is none
    } casos[] = {{true, "", true, nuevo},
                 {false, "", true, ""},
                 {true, c.rutaCopia(), false, "-"},
                 {false, m_ruta, false, "-"},
                 {true, m_ruta, false, viejo}};  // the old file stands, and is copied
    for (const auto& caso : casos) {
        EntornoDoble e;
        const comun com(e.entorno);
        if (caso.archivo) {
            e.ini(viejo);
            e.valor("S", "k", "2");
        }
        e.archivos.poner(c.rutaCopia(), "of an earlier session");
        e.archivos.rutaQueFalla = caso.rutaQueFalla;
        EXPECT_EQ(com.hacerCopiaDeINI(), caso.bien);
        EXPECT_EQ(e.archivos.existe(c.rutaCopia()) ? e.archivos.contenido(c.rutaCopia()) : "-", caso.copia);
    }
}

TEST_F(ConfigAlmacen, RestauraLaCopiaEnUnReemplazo) {
    k("2");
    EXPECT_FALSE(c.restaurarCopiaDeINI());  // no copy
    m.archivos.poner(c.rutaCopia(), "[S]\nk=\xF1\n#\n");
    m.archivos.fallarEscritura = true;
    EXPECT_FALSE(c.restaurarCopiaDeINI());
    EXPECT_EQ(k() + disco(), "\u00F1[S]\r\nk=1\r\n") << "what was taken back is read no longer";
    EXPECT_TRUE(m.perfil.pendiente()) << "and the file follows when it can";
    m.archivos.fallarEscritura = false;
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
