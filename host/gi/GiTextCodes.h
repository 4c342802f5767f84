// The characters a text string shows: the %% codes and \U+ escapes that entity strings carry.
#pragma once

#include <string>

#include "host/rx/AcChar.h"

// The first len characters of str (all of it for len < 0), with the codes translated unless
// raw: %%d degree, %%c diameter, %%p plus-minus, %%% a percent sign, %%nnn the character of
// that decimal code, \U+XXXX the Unicode character; the underline and overline toggles %%u and
// %%o are dropped. Any other %% sequence stays as written. A null str gives "".
std::u32string giShownText(const ACHAR* str, int len, bool raw);
