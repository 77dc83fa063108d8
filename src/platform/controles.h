#pragma once

namespace sorvanel {

// Window identifiers of everything that can be found from outside: system tests and UI automation
// rely on them, so a number once given stays. Element i of a control array has its base id plus i
// (1 to 64 for what a display has; element 0 is the template itself).
enum class IdControl : int {
    picBot = 100,
    picMsg = 101,
    lbVer = 102,
    lbEstado = 103,

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
    lbMedida = 120,  // where the handle that is dragged has taken the grid

    imDrgXY = 130,
    imDrgWH = 131,

    picMarca = 320,  // what a drag would do: 0 to 3 the edges of the cell, 4 in words

    picRep = 1000,
    picCap = 1100,

    // Windows of the tools. Within one window an id names one control or one array of controls.
    cfgVisor = 200,
    cfgContexto = 201,
    cfgMensaje = 202,

    // What several tools have.
    ttlo = 210,
    ttlo2 = 211,
    imUnload = 212,
    lstAjte = 213,
    txFmt = 214,
    txRatio = 215,
    lbWidEt = 216,
    imWidEtP = 217,
    imWidEtM = 218,
    botColTxEt = 220,
    frColorTxEt = 221,
    botColFdEt = 222,
    frColorFdEt = 223,
    botColTxPe = 224,
    frColorTxPe = 225,
    botColFdPe = 226,
    frColorFdPe = 227,
    picEjEtq = 230,  // with lbEjEtq painted on it
    picEjVis = 231,  // with lbEjVis painted on it

    // cfgVisor
    frTodo = 300,
    frPav = 301,
    txPavHost = 302,
    txPavPort = 303,
    botNvo = 304,
    botElim = 305,
    imDesf = 306,
    frDise = 307,  // the panel of one display's own look
    imSubir = 308,
    imBajar = 309,
    ckWid = 310,
    ckAdj = 311,
    ckTxEt = 312,
    ckFdEt = 313,
    ckTxPe = 314,
    ckFdPe = 315,
    ckRat = 316,
    ckFmt = 317,
    lbPag = 318,      // which displays the page shows
    lbElegida = 319,  // at the edge of the selected row
    botCopiar = 330,
    botPegar = 331,
    lbRecepcion = 340,  // what comes to the selected display
    lbEquipo = 341,     // this computer's addresses
    botRegistro = 342,  // opens the log
    frVis = 2000,
    lbVis = 2100,
    imPtc = 2200,
    txPort = 2300,
    lstModo = 2400,
    txEtq = 2500,
    txUbi = 2600,
    imFoco = 2700,
    lbPav = 2800,  // marks a row of the concentrator's family

    // cfgContexto
    lbMon = 400,
    imMoP = 401,
    imMoM = 402,
    lbRow = 403,
    imRwP = 404,
    imRwM = 405,
    lbCol = 406,
    imCoP = 407,
    imCoM = 408,
    lbGrH = 409,
    imGrHP = 410,
    imGrHM = 411,
    lbGrV = 412,
    imGrVP = 413,
    imGrVM = 414,
    botColFdo = 420,
    frColorFdo = 421,
    botColRet = 422,
    frColorRet = 423,
    botColorApp = 424,
    frColorApp = 425,
    ckTrpa = 426,
    ttlo1 = 427,  // its main title
    ckEncima = 430,

    // cfgMensaje
    ckUsar = 500,
    lbUsar = 501,
    txTexto = 502,
    botFont = 503,
    botColorTxt = 504,
    frColorTxt = 505,
    botColorBak = 506,
    frColorBak = 507,
    lbVel = 508,
    imVelP = 509,
    imVelM = 510,
    frTxt = 511,
    frFnt = 512,
    frVel = 513,
    lbTapa = 514,  // which rows of the grid the band covers
    botAjustar = 515,

    // Labels and grounds that nothing refers to: the base and a running number.
    rotulo = 3000,
    marco = 3200,
};

constexpr int numero(IdControl id, int elemento = 0) {
    return static_cast<int>(id) + elemento;
}

}  // namespace sorvanel
