#pragma once

namespace sorvanel {

// Accents and signs that are drawn on or with the character before them: the general categories Mn, Mc and Me of
// Unicode 14.0, the vowels and finals of Hangul, joiners, skin tones and tags.
bool seUneAlAnterior(char32_t caracter);

// Belongs to a script that is written from right to left (Hebrew, Arabic and their like).
bool vaDeDerechaAIzquierda(char32_t caracter);

}  // namespace sorvanel
