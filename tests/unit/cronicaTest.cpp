#include "app/cronica.h"

#include <sstream>

#include "unit/bancoBase.h"

namespace sorvanel {
namespace {

using Lineas = std::vector<std::string>;

// A state each second, as often as the number behind it says: c there, s and t missing for two reasons, - nothing
// known, ! there, and between two looks it went once. What is said, each with the second at which it was.
Lineas contar(const std::string& guion) {
    RelojDoble reloj;
    Vaiven vaiven(reloj);
    VistaVaiven vista;
    Lineas dicho;
    std::istringstream pasos(guion);
    int segundo = 0;
    const auto anotar = [&](const Lineas& lineas) {
        for (const std::string& una : lineas) dicho.push_back(std::to_string(segundo) + " " + una);
    };
    for (std::string paso; pasos >> paso;) {
        for (int veces = paso.size() > 1 ? std::stoi(paso.substr(1)) : 1; veces > 0; --veces, ++segundo) {
            const bool faltaba = vista.estado == VistaVaiven::Estado::falta;
            const bool falta = paso[0] == 's' || paso[0] == 't';
            if (falta && !faltaba) vista.desde = reloj.ahora();
            if ((faltaba && !falta) || paso[0] == '!') ++vista.vueltas;
            vista.motivo = falta ? std::string(1, paso[0]) : "";
            vista.estado = falta ? VistaVaiven::Estado::falta : VistaVaiven::Estado::viene;
            if (paso[0] == '-') vista.estado = VistaVaiven::Estado::espera;
            anotar(vaiven.mirar(vista));
            reloj.avanzar(1000);
        }
    }
    anotar(vaiven.terminar());
    return dicho;
}

TEST(Vaiven, cadaCambioUnaVezYLosMuchosResumidos) {
    std::string mucho = "c ", calma;
    for (int i = 0; i < 50; ++i) mucho += "s4 c6 ";
    const std::pair<std::string, Lineas> casos[] = {
        {"-5 c9", {"5 con datos"}},
        {"- s872 c9", {"1 sin datos: s", "873 con datos de nuevo tras 14 min 32 s"}},
        {"c s c9", {"0 con datos", "1 sin datos: s", "2 con datos de nuevo tras 1 s"}},
        {"c2 ! c2", {"0 con datos", "2 sin datos", "2 con datos de nuevo tras menos de 1 s"}},
        // Another reason once, and only one that lasts; then hardly ever.
        {"s9 t5 s9", {"0 sin datos: s"}},
        {"s3 t20 s500 c", {"0 sin datos: s", "13 sigue sin datos: t", "523 con datos de nuevo tras 8 min 43 s"}},
        {"s3 t20 s700", {"0 sin datos: s", "13 sigue sin datos: t", "623 sigue sin datos: s"}},
        // The third loss of a minute.
        {"c s c9 s c20 s2 c99",
         {"0 con datos", "1 sin datos: s", "2 con datos de nuevo tras 1 s", "11 sin datos: s",
          "12 con datos de nuevo tras 1 s", "32 sin datos: s; va y viene: desde aquí se resume",
          "94 ha perdido y recuperado los datos 1 vez desde 10:41 (2 s sin datos en total); con datos desde 10:41"}},
        {"c s c s c s t90 c",
         {"0 con datos", "1 sin datos: s", "2 con datos de nuevo tras 1 s", "3 sin datos: s",
          "4 con datos de nuevo tras 1 s", "5 sin datos: s; va y viene: desde aquí se resume",
          "65 ha perdido y recuperado los datos 1 vez desde 10:41; "
          "sin datos desde 10:41: t",
          "96 con datos de nuevo tras 1 min 31 s"}},
        {"c s c s c s c4 s",
         {"0 con datos", "1 sin datos: s", "2 con datos de nuevo tras 1 s", "3 sin datos: s",
          "4 con datos de nuevo tras 1 s", "5 sin datos: s; va y viene: desde aquí se resume",
          "11 ha perdido y recuperado los datos 2 veces desde 10:42 (1 s sin datos en total); "
          "sin datos desde 10:42: s"}},
    };
    for (const auto& [guion, esperado] : casos) EXPECT_EQ(contar(guion), esperado) << guion;
    const Lineas largo = contar(mucho);
    ASSERT_EQ(largo.size(), 10U) << "in ever longer intervals";
    EXPECT_TRUE(largo[6].starts_with("81 ha perdido y recuperado los datos 7 veces")) << largo[6];
    EXPECT_TRUE(largo[7].starts_with("201 ha perdido y recuperado los datos 12 veces")) << largo[7];
    EXPECT_EQ(contar("c s c s c s c200").size(), 7U) << "after the calm nothing";
    std::string lento = "c ";
    for (int i = 0; i < 100; ++i) lento += "s5 c95 ";
    EXPECT_EQ(contar(lento).size(), 1U + 18 + 1 + 15) << "nine an hour, and then one sum each ten minutes";
    EXPECT_EQ(contar(lento + "c500 s900 c").size(), 1U + 18 + 1 + 15 + 3)
        << "calm; and a long absence is told by itself";
}

TEST(Vaiven, loQueDura) {
    const std::pair<std::int64_t, const char*> casos[] = {{0, "menos de 1 s"},      {4'900, "4 s"},
                                                          {60'000, "1 min"},        {872'000, "14 min 32 s"},
                                                          {7'500'000, "2 h 5 min"}, {273'600'000, "3 d 4 h"}};
    for (const auto& [duracion, texto] : casos) EXPECT_EQ(textoDuracion(duracion), texto);
}

struct BancoCronica : Banco {
    using Banco::Banco;
    // Since the last time.
    Lineas dicho() { return std::exchange(e.bitacora.lineas, {}); }
    Lineas trasSegundos(int cuantos, const std::string& trama = {}) {
        for (int i = 0; i < 2 * cuantos; ++i) {
            if (!trama.empty()) enviar(3001, trama.c_str());
            e.reloj.avanzar(500);
            e.cola.ejecutar();
        }
        return dicho();
    }
};

constexpr const char* PESO = "XNZ+00012000";

TEST(Cronica, unaNoche) {
    BancoCronica t(DOS_VISORES, false);
    t.e.fabrica.red().ocupados = {3002};
    t.cargar();
    EXPECT_EQ(t.dicho(),
              (Lineas{"Inicio: Sorvanel 1.00A, configuración en " + t.e.rutaINI(),
                      "Pantalla: monitor \\\\.\\DISPLAY1, 1024x768 al 100 %, de 1 que hay; visores definidos: 2",
                      "En marcha"}));
    EXPECT_EQ(t.trasSegundos(2, PESO), (Lineas{"Visor #1 (Tolva): con datos",
                                               "Visor #2 (Silo): sin datos: Port 3002 en uso por otro programa"}));
    EXPECT_EQ(t.trasSegundos(300, PESO), Lineas{}) << "nothing happens";
    EXPECT_EQ(t.trasSegundos(60), Lineas{"Visor #1 (Tolva): sin datos: UDP 3001, nada recibido"});
    EXPECT_EQ(t.trasSegundos(30, "BASURA"),
              Lineas{"Visor #1 (Tolva): sigue sin datos: UDP 3001, llegan datos pero ninguna lectura"});
    EXPECT_EQ(t.trasSegundos(1, PESO), Lineas{"Visor #1 (Tolva): con datos de nuevo tras 1 min 31 s"});
    t.e.fabrica.red().ocupados.clear();
    EXPECT_EQ(t.trasSegundos(60, PESO), Lineas{"Visor #2 (Silo): sigue sin datos: UDP 3002, nada recibido"});
    const Lineas hora = t.trasSegundos(3600, PESO);
    ASSERT_EQ(hora.size(), 2U) << ::testing::PrintToString(hora);
    EXPECT_EQ(hora[0], "Sigue en marcha: 1 de 2 visores con datos");
    t.pantalla({0, 0, 640, 40});
    EXPECT_EQ(t.trasSegundos(2),
              (Lineas{"Han cambiado los monitores: monitor \\\\.\\DISPLAY1, 640x40 al 100 %, de 1 que hay",
                      "Visor #1 (Tolva): sin datos: no se puede mostrar en su celda"}));
    t.formulario.pulsar(Id::botOff);
    EXPECT_EQ(t.dicho(), Lineas{"Fin: botón de cerrar"});
}

TEST(Cronica, laConexionConElConcentrador) {
    using Motivo = EstadoConexion::Motivo;
    BancoCronica t(std::string(DOS_VISORES) + "[PAVONA]\r\nHost=pesa\r\n");
    t.trasSegundos(1);
    const auto pasar = [&](EstadoConexion estado, int segundos) {
        t.compartido.comoEsta = estado;
        return t.trasSegundos(segundos);
    };
    const std::string quien = "Concentrador pesa:9084: ";
    t.trasSegundos(30);
    EXPECT_EQ(pasar({true, false, 0, Motivo::rechazada}, 9),
              Lineas{quien + "sin conexión: rechaza la conexión, desde hace 32 s"});
    EXPECT_EQ(pasar({true, true, 1}, 9), Lineas{quien + "conectado de nuevo tras 41 s"});
    EXPECT_EQ(pasar({true, false, 1, Motivo::cerrada}, 9), Lineas{quien + "sin conexión: ha cerrado la conexión"});
    EXPECT_EQ(pasar({true, false, 1, Motivo::sinRespuesta}, 30), Lineas{quien + "sigue sin conexión: no responde"});
}

TEST(Cronica, loQueHaceElOperador) {
    BancoCronica t(DOS_VISORES);
    t.dicho();
    t.configurar();
    for (const Id boton : {Id::botCan, Id::botOk, Id::botCfg, Id::botCan, Id::botSize, Id::botOk})
        t.formulario.pulsar(boton);
    const std::string entra = "Se entra en la configuración", cancela = "Configuración cancelada: vuelve la de antes";
    const Lineas esperado{
        "En pausa", entra, cancela, "Se sale de la configuración", entra, cancela, "Configuración aceptada"};
    EXPECT_EQ(t.dicho(), esperado);
    AvisosAnotados avisos(t.e.avisos, t.e.bitacora);
    avisos.critico("Uno\nDos");
    EXPECT_EQ(t.dicho(), Lineas{"Aviso al operador: Uno / Dos"});
    EXPECT_EQ(t.e.avisos.textos.back(), "Uno\nDos");
    const std::pair<MotivoCierre, const char*> cierres[] = {{MotivoCierre::ventana, "Fin: ventana cerrada"},
                                                            {MotivoCierre::sesion, "Fin: termina la sesión"},
                                                            {MotivoCierre::instalacion, "Fin: lo pide una instal"}};
    for (const auto& [motivo, principio] : cierres) {
        BancoCronica otro(DOS_VISORES);
        otro.formulario.quienOye->alDescargar(motivo);
        EXPECT_TRUE(otro.dicho().back().starts_with(principio)) << principio;
    }
}

TEST(Cronica, elArchivoQueNoSeDejaLeerNiGuardar) {
    BancoCronica t(DOS_VISORES);
    const std::string ruta = t.e.rutaINI();
    t.dicho();
    t.e.archivos.rutaIlegible = ruta;
    t.e.archivos.poner(ruta, DOS_VISORES);
    for (int i = 0; i < 3; ++i, t.e.reloj.avanzar(300)) t.e.com.refrescar();
    EXPECT_EQ(t.e.bitacora.cuantas("No se puede leer " + ruta + ": retenido"), 1);
    t.e.archivos.rutaIlegible.clear();
    t.e.com.refrescar();
    EXPECT_EQ(t.e.bitacora.cuantas("Se puede leer de nuevo " + ruta), 1);
    t.e.archivos.fallarEscritura = true;
    t.e.valor("PAVONA", "Host", "otro");
    for (int i = 0; i < 2; ++i) t.e.perfil.volcar();
    EXPECT_EQ(t.e.bitacora.cuantas("No se puede guardar " + ruta), 1);
    t.e.archivos.fallarEscritura = false;
    for (int i = 0; i < 2; ++i) t.e.perfil.volcar();
    EXPECT_EQ(t.e.bitacora.cuantas("Se ha guardado " + ruta), 1);
}

}  // namespace
}  // namespace sorvanel
