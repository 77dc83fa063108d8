#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

using namespace std::string_literals;

class ConfigAlmacen : public testing::Test {
protected:
    EntornoDoble m;
    const std::string m_ruta = m.rutaINI();
    std::vector<std::string> m_avisos;

    void SetUp() override {
        m.ini("[S]\r\nk=1\r\n");
        m.perfil.alFallar([this](const std::string& ruta) { m_avisos.push_back(ruta); });
    }
    std::string disco() const { return m.archivos.contenido(m_ruta); }
};

TEST_F(ConfigAlmacen, UnaOperacionEsUnReemplazo) {
    AccesorINI uno = comun(m.entorno).abrir("S");
    const AccesorINI otro = comun(m.entorno).abrir("s");
    uno.escribir("k", "2");
    uno.escribir("j", "3");
    uno.borrarSeccion("no existe");
    EXPECT_EQ(otro.leer("K"), "2");
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    EXPECT_TRUE(m.perfil.pendiente());
    m.perfil.ocio(true);
    EXPECT_EQ(disco(), "[S]\r\nk=2\r\nj=3\r\n");
    m.perfil.ocio(true);
    EXPECT_EQ(m.archivos.intentos, 1);
}

TEST_F(ConfigAlmacen, ConLaColaLlenaEsperaCienMilisegundosDesdeLaPrimera) {
    m.valor("S", "k", "2");
    m.reloj.avanzar(99);
    m.valor("S", "k", "3");
    m.perfil.ocio(false);
    EXPECT_EQ(m.archivos.intentos, 0);
    m.reloj.avanzar(1);
    m.perfil.ocio(false);
    EXPECT_EQ(disco(), "[S]\r\nk=3\r\n");
    m.valor("S", "k", "4");  // a new wait begins
    m.perfil.ocio(false);
    EXPECT_EQ(m.archivos.reemplazos, 1);
}

TEST_F(ConfigAlmacen, LoQueNoCambiaNoSeEscribe) {
    m.valor("s", "K", "1");
    m.perfil.borrarClave(m_ruta, "S", "no");
    m.perfil.borrarSeccion(m_ruta, "no");
    EXPECT_FALSE(m.perfil.pendiente());
    EXPECT_TRUE(m.perfil.volcar());
    EXPECT_EQ(m.archivos.intentos, 0);
    m.perfil.borrarSeccion(m_ruta, "S");
    m.perfil.ocio(true);
    EXPECT_EQ(disco(), "");
}

TEST_F(ConfigAlmacen, TrasUnFalloAvisaUnaVezYReintentaConLaSiguienteEscritura) {
    m.archivos.fallarEscritura = true;
    m.valor("S", "k", "2");
    m.perfil.ocio(true);
    m.perfil.ocio(true);
    m.reloj.avanzar(1000);
    m.perfil.ocio(false);
    EXPECT_EQ(m.archivos.intentos, 1);
    EXPECT_FALSE(m.perfil.pendiente());
    EXPECT_EQ(m.valor("S", "k"), "2");
    m.perfil.refrescar(m_ruta);
    EXPECT_EQ(m.valor("S", "k"), "2");
    m.valor("S", "k", "2");  // equal, and yet tried again
    m.perfil.ocio(true);
    EXPECT_EQ(m.archivos.intentos, 2);
    EXPECT_FALSE(m.perfil.volcar());
    EXPECT_EQ(m_avisos, std::vector<std::string>{m_ruta});
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    m.archivos.fallarEscritura = false;
    EXPECT_TRUE(m.perfil.volcar());
    EXPECT_EQ(disco(), "[S]\r\nk=2\r\n");
    m.archivos.fallarEscritura = true;
    m.valor("S", "k", "3");
    m.perfil.ocio(true);
    EXPECT_EQ(m_avisos.size(), 2U);
}

TEST_F(ConfigAlmacen, ElAvisoPuedeVolverALlamar) {
    m.archivos.fallarEscritura = true;
    m.perfil.alFallar([&](const std::string& ruta) {
        m_avisos.push_back(ruta);
        m.valor("S", "k", "3");
        m.perfil.ocio(true);
        m.perfil.olvidar(ruta);
    });
    m.valor("S", "k", "2");
    m.perfil.ocio(true);
    EXPECT_EQ(m_avisos.size(), 1U);
    EXPECT_EQ(m.valor("S", "k"), "1");
}

TEST_F(ConfigAlmacen, VeLoQueOtroProgramaEscribio) {
    const comun c(m.entorno);
    EXPECT_EQ(c.abrir("S").leer("k"), "1");
    m.archivos.poner(m_ruta, "[S]\r\nk=7\r\n");
    EXPECT_EQ(c.abrir("S").leer("k"), "7");
    const int lecturas = m.archivos.lecturas;
    m.valor("S", "k", "8");
    m.archivos.poner(m_ruta, "[S]\r\nk=9\r\n");
    EXPECT_EQ(c.abrir("S").leer("k"), "8");
    m.perfil.ocio(true);
    EXPECT_EQ(c.abrir("S").leer("k"), "8");
    EXPECT_EQ(m.archivos.lecturas, lecturas);  // our own write is no change by another
    m.archivos.quitar(m_ruta);
    EXPECT_EQ(c.abrir("S").leer("k"), "");
}

TEST_F(ConfigAlmacen, OlvidarDejaLoPendiente) {
    m.valor("S", "k", "2");
    m.perfil.olvidar(m_ruta);
    EXPECT_TRUE(m.perfil.volcar());
    EXPECT_EQ(m.archivos.intentos, 0);
    EXPECT_EQ(m.valor("S", "k"), "1");
}

// A file that another program holds for a moment must not be replaced by our few keys.
TEST_F(ConfigAlmacen, LoQueNoSePuedeLeerNoSePisa) {
    m.archivos.fallarLectura = true;
    EXPECT_EQ(m.valor("S", "k"), "");
    m.perfil.borrarClave(m_ruta, "S", "k");
    m.valor("S", "j", "2");
    EXPECT_EQ(m.valor("S", "j"), "2");
    m.perfil.ocio(true);
    EXPECT_EQ(m_avisos.size(), 1U);
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    m.archivos.poner(m_ruta, "[S]\r\nk=1\r\nz=3\r\n");
    m.archivos.fallarLectura = false;
    m.valor("S", "i", "4");
    EXPECT_EQ(m.valor("S", "j"), "2");
    m.perfil.ocio(true);
    EXPECT_EQ(disco(), "[S]\r\nz=3\r\nj=2\r\ni=4\r\n");
}

TEST_F(ConfigAlmacen, UnArchivoEnormeNiSeLeeNiSePisa) {
    const std::string enorme = "[S]\nk=1\n" + std::string(AlmacenPerfil::TAMANO_MAXIMO, '\n');
    m.ini(enorme);
    EXPECT_EQ(m.valor("S", "k"), "");
    m.valor("S", "k", "2");
    EXPECT_FALSE(m.perfil.volcar());
    EXPECT_EQ(disco().size(), enorme.size());
}

TEST_F(ConfigAlmacen, HaceLaCopiaByteAByte) {
    const struct {
        bool archivo, copiaVieja;
        std::string rutaQueFalla;
        bool bien;
        std::string copia;  // "-": there is none
    } casos[] = {
        {true, false, "", true, "[S]\nk=2\r\n; \xF1\0x"s},
        {true, true, "", true, "[S]\nk=2\r\n; \xF1\0x"s},
        {false, true, "", true, ""},
        {true, true, "copia", false, "-"},
        {false, true, "ini", false, "-"},
        {true, true, "ini", false, "[S]\nk=1\r\n; \xF1\0x"s},  // the old file stands, and is copied
    };
    for (const auto& caso : casos) {
        EntornoDoble e;
        const comun c(e.entorno);
        if (caso.archivo) {
            e.ini("[S]\nk=1\r\n; \xF1\0x"s);
            e.valor("S", "k", "2");
        }
        if (caso.copiaVieja) {
            e.archivos.poner(c.rutaCopia(), "vieja");
        }
        if (!caso.rutaQueFalla.empty()) {
            e.archivos.rutasQueFallan = {caso.rutaQueFalla == "ini" ? c.rutaINI() : c.rutaCopia()};
        }
        EXPECT_EQ(c.hacerCopiaDeINI(), caso.bien);
        EXPECT_EQ(e.archivos.existe(c.rutaCopia()) ? e.archivos.contenido(c.rutaCopia()) : "-", caso.copia);
    }
}

TEST_F(ConfigAlmacen, RestauraLaCopiaEnUnReemplazo) {
    const comun c(m.entorno);
    m.valor("S", "k", "2");
    EXPECT_FALSE(c.restaurarCopiaDeINI());  // no copy
    EXPECT_EQ(m.valor("S", "k"), "2");
    m.archivos.poner(c.rutaCopia(), "[S]\nk=\xF1\n#\n");
    m.archivos.fallarEscritura = true;
    EXPECT_FALSE(c.restaurarCopiaDeINI());
    EXPECT_EQ(m.valor("S", "k"), "2");
    EXPECT_EQ(disco(), "[S]\r\nk=1\r\n");
    m.archivos.fallarEscritura = false;
    EXPECT_TRUE(c.restaurarCopiaDeINI());
    EXPECT_EQ(m.archivos.reemplazos, 1);
    m.perfil.volcar();
    EXPECT_EQ(disco(), "[S]\nk=\xF1\n#\n");
    EXPECT_EQ(m.valor("S", "k"), "\u00F1");
    EXPECT_TRUE(m.archivos.existe(c.rutaCopia()));
}

}  // namespace
}  // namespace sorvanel
