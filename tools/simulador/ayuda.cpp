#include "simulador/opciones.h"

namespace sorvanel::simulador {

std::string_view textoAyuda() {
    return R"(simulador: hace de indicadores de peso de la familia Tessel, para probar Sorvanel sin báscula.

Uso: simulador [opciones]
     simulador concentrador [opciones]     hace del concentrador de la familia Pavona, por TCP;
                                           sus opciones, con: simulador concentrador --help

Sin opciones hace de cuatro básculas que envían a los puertos 9001 a 9004 de este mismo
equipo, diez tramas por segundo cada una, hasta que se pulse Ctrl+C.

Adónde y cuánto
  --destino EQUIPO       nombre o dirección IPv4 del equipo con Sorvanel (127.0.0.1)
  --puertos LISTA        un indicador por puerto (9001-9004): puertos e intervalos separados
                         por comas; cada uno puede llevar su equipo delante: 10.0.0.5:9001-9004
  --ritmo N              tramas por segundo de cada indicador, de 0.1 a 1000 (10)
  --duracion SEGUNDOS    terminar al cabo de ese tiempo
  --tramas N             terminar tras N turnos de cada indicador (también cuentan los callados)

Qué pesos (sin ninguna de las tres primeras: básculas que se cargan y se descargan)
  --peso PESO            siempre ese peso; con «puerto», cada indicador da su número de puerto
  --barrido MÍN:MÁX:PASO en cada trama un paso más, y vuelta a empezar
  --contar               en cada trama una milésima más: cada una es distinta de la anterior
  --capacidad LISTA      capacidad de cada báscula (6000); si faltan, se repite la lista
  --division LISTA       división mínima de cada báscula (1)
  --ciclo SEGUNDOS       lo que dura una carga, de 5 a 3600 (30)

Marcas y silencios
  --marcas MARCAS        «modelo» (E estable, C cargando, D descargando), «azar» o tres letras
                         fijas: E o X; C, N o X; D, Z o X
  --callar LISTA         el indicador I calla a los S segundos, I:S, o solo un rato, I:S-S
  --pausas CADA:DURA     cada CADA segundos callan DURA segundos, cada uno a su hora;
                         con azar:CADA:DURA, en cualquier momento de cada turno

Faltas
  --malas N[:CLASES]     antes de cada N-ésima trama de un indicador, una mala: letras, signo,
                         corta, larga, cifras (todas, por turno)
  --basura N             antes de cada N-ésima trama, un datagrama sin sentido
  --partir N             cada N-ésima trama, en dos datagramas
  --juntar N             N tramas en cada datagrama, de 2 a 100: otras tantas por turno
  --avalancha DESDE:HASTA   entre esos segundos, sin límite de ritmo (60 segundos como mucho)

Otras
  --semilla N            repite el azar de otra ejecución
  --mostrar              escribe cada trama enviada
  --help                 esta ayuda

Los decimales van con punto. Los indicadores se numeran desde 1, en el orden de --puertos.

Ejemplos
  simulador
      cuatro básculas en este equipo
  simulador --destino 192.168.1.20 --puertos 9001-9008 --peso puerto
      en cada visor se lee su puerto: así se comprueba cuál es cuál
  simulador --puertos 9001,9002 --capacidad 60000,1500 --division 20,0.5 --ciclo 60
      una báscula de camiones y otra de palés
  simulador --callar 2:5
      el segundo indicador enmudece a los cinco segundos
  simulador --puertos 9001-9064 --ritmo 50 --contar --duracion 60
      64 indicadores a 50 tramas por segundo durante un minuto
  simulador --contar --malas 5:signo,corta --basura 7
      las tramas buenas llegan todas; las demás no deben verse

Termina con 0, con 1 si no pudo enviar o con 2 si una opción no es válida.
)";
}

}  // namespace sorvanel::simulador
