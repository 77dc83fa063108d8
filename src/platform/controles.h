#pragma once

namespace sorvanel {

// Window identifiers of everything that can be found from outside: system tests and UI automation
// rely on them, so a number once given stays. Element i of a control array has its base id plus i
// (1 to 64; element 0 is the template itself).
enum class IdControl : int {
    picBot = 100,
    picMsg = 101,
    lbVer = 102,

    botOff = 110,
    botRun = 111,
    botPau = 112,
    botCfg = 113,
    botOk = 114,
    botCan = 115,
    botDise = 116,
    botVisores = 117,
    botSize = 118,
    botMensaje = 119,

    imDrgXY = 130,
    imDrgWH = 131,

    picRep = 1000,
    picCap = 1100,
};

constexpr int numero(IdControl id, int elemento = 0) { return static_cast<int>(id) + elemento; }

}  // namespace sorvanel
