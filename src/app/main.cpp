#include "platform/win32/system/arranque.h"

#include "app/anotaciones.h"
#include "app/base.h"
#include "app/reinicios.h"
#include "config/almacenPerfil.h"
#include "links/frTCP.h"
#include "platform/win32/base/bucle.h"
#include "platform/win32/base/colaWin.h"
#include "platform/win32/base/relojWin.h"
#include "platform/win32/base/textoWin.h"
#include "platform/win32/base/ventanaMensajes.h"
#include "platform/win32/network/fabricaWin.h"
#include "platform/win32/system/archivosWin.h"
#include "platform/win32/system/avisosWin.h"
#include "platform/win32/system/bitacoraWin.h"
#include "platform/win32/system/dialogosSistemaWin.h"
#include "platform/win32/system/monitoresWin.h"
#include "platform/win32/system/programaWin.h"
#include "platform/win32/system/reinicioWin.h"
#include "platform/win32/system/sesionWin.h"
#include "platform/win32/windows/formularioWin.h"

namespace sorvanel {
namespace {

// Everything that there is one of. Later members use earlier ones and go before them.
struct Composicion {
    SesionWinsock winsock;
    SesionOLE ole;
    ProgramaWin programa;
    ArchivosWin archivos;
    MonitoresWin monitores;
    RelojWin reloj;
    AvisosWin avisos;
    CursorWin cursor{avisos};
    ReposoWin reposo;
    VentanaMensajes ventana{reloj};
    Bucle bucle{reloj, ventana};
    ColaWin cola{ventana};
    FabricaWin fabrica{ventana, reloj};
    ReinicioWin reinicio{fabrica};
    AlmacenPerfil perfil{archivos, reloj, fabrica};
    comun com{programa, archivos, perfil};
    BitacoraWin bitacora{com.rutaRegistro()};
    AvisosAnotados anotados{avisos, bitacora};
    Entorno entorno{programa, com, monitores, fabrica, reloj, cursor, anotados, cola, reposo, bitacora};
    frTCP compartido{com, fabrica, reloj};
    RecursosVentanas recursos{ventana.tandas(), ole};
    FormularioWin formulario{recursos, "Sorvanel"};
    FabricaDialogosWin dialogos{recursos, bucle, avisos, formulario.hwnd()};
    base principal{entorno, formulario, dialogos, compartido};

    explicit Composicion(const Reinicios& reinicios) {
        if (reinicios.reiniciado()) bitacora.anotar("Windows ha vuelto a abrir el programa");
        reinicio.pedir(reinicios.argumentos(), static_cast<int>(reinicios.espera()));
        avisos.propietaria(formulario.hwnd());
        reposo.alCambiar([this](bool impedido) { formulario.reposoImpedido(impedido); });
        perfil.alFallar([this](const std::string& ruta) {
            // Not between two messages, where the store asks for it: the box runs a loop of its own.
            cola.despues([this, ruta] { anotados.critico("No se puede guardar la configuración en " + ruta); });
        });
        perfil.alSuceder([this](const std::string& que) { bitacora.anotar(que); });
        bucle.ocio([this](bool colaVacia) {
            try {
                perfil.ocio(colaVacia);
            } catch (const std::exception& fallo) {
                OutputDebugStringA(fallo.what());  // out of memory: its timer asks again
            }
        });
        bucle.anadirDialogo(formulario.hwnd());
    }

    int ejecutar() {
        principal.cargar();
        const int codigo = bucle.ejecutar();
        perfil.volcar();
        return codigo;
    }
};

int ejecutarPrograma(const std::string& argumentos) {
    endurecerProceso();
    const Instancia instancia(ProgramaWin().nombreEjecutable());
    if (!instancia.primera()) return 0;
    return Composicion(Reinicios(argumentos, segundosUTC())).ejecutar();
}

}  // namespace
}  // namespace sorvanel

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    try {
        return sorvanel::ejecutarPrograma(sorvanel::aUtf8(GetCommandLineW()));
    } catch (const std::exception& fallo) {
        // No window, no sockets or no memory at the start: there is nothing to show it with.
        OutputDebugStringA(fallo.what());
        return 1;
    }
}
