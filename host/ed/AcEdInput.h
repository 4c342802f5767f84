// The editor's input functions (acedGetPoint and friends) with the platform's result codes,
// acedInitGet keywords and flags, entity picks, and acedPrompt. Points are in the current
// UCS. Each prompt and the answer echoed go to the transcript.
#pragma once

#include <cstddef>

#include "host/db/adsdef.h"
#include "host/rx/AcChar.h"

// acedInitGet flags.
#define RSG_NONULL 0x0001    // Enter is refused
#define RSG_NOZERO 0x0002    // 0 is refused
#define RSG_NONEG 0x0004     // negative values are refused
#define RSG_NOLIM 0x0008     // drawing limits are not checked
#define RSG_GETZ 0x0010      // z of points
#define RSG_DASH 0x0020      // dashed rubber band
#define RSG_2D 0x0040        // distances ignore z
#define RSG_OTHER 0x0080     // arbitrary text is accepted and returned as RTKWORD
#define RSG_DDISTFIRST 0x0100
#define RSG_TRACKUCS 0x0200
#define RSG_NOORTHOZ 0x0400
#define RSG_NOOSNAP 0x0800
#define RSG_NODDIST 0x1000

// Keywords and flags for the next input call only. Keywords are separated by blanks, or
// by commas when the list has any; a keyword's capital letters (or the part before a
// comma-given abbreviation, "Lagepunkt,L") are its short form; a list with a "_" word
// gives the global forms after it ("Entfernen Remove _ Remove Remove"). Matching ignores
// case. RTNORM, or RTERROR for a bad flag set.
int acedInitGet(int val, const ACHAR* kwl);

// RTNORM with the point (UCS); RTNONE on Enter; RTCAN on Esc; RTKWORD for a keyword or,
// with RSG_OTHER, other text (read it with acedGetInput). With a base point the answer may
// be relative to it ("@dx,dy", "@d<a"); without one relative input uses LASTPOINT.
int acedGetPoint(const ads_point pt, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point pt, const ACHAR* prompt, ads_point result);
// A number, or a point whose distance from the base point is taken.
int acedGetDist(const ads_point pt, const ACHAR* prompt, ads_real* result);
// Degrees typed, radians returned; or a point whose angle from the base point is taken.
// acedGetAngle measures from ANGBASE, acedGetOrient from east (the same here: ANGBASE 0).
int acedGetAngle(const ads_point pt, const ACHAR* prompt, ads_real* result);
int acedGetOrient(const ads_point pt, const ACHAR* prompt, ads_real* result);
int acedGetInt(const ACHAR* prompt, int* result);
int acedGetReal(const ACHAR* prompt, ads_real* result);
// cronly nonzero: the whole line (blanks included); else the first word. bufsize counts
// the terminator; longer text is cut and RTINPUTTRUNCATED returned. Without bufsize 133.
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize);
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result);
// A keyword of the armed list (its global form when the list gives global names, else its
// full local form), or RTNONE / RTCAN.
int acedGetKword(const ACHAR* prompt, ACHAR* result, size_t bufsize);
int acedGetKword(const ACHAR* prompt, ACHAR* result);
// The text of the last RTKWORD answer (the keyword's full form, or the other text).
int acedGetInput(ACHAR* str, size_t bufsize);
int acedGetInput(ACHAR* str);

// A pick: RTNORM with the entity and the pick point (UCS); RTERROR on a miss (ERRNO 7)
// and on Enter (ERRNO 52); RTCAN on Esc; RTKWORD for a keyword. The topmost entity under
// the pick box wins.
int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres);
// As acedEntSel, with the transformation (identity here: entities are not nested in
// blocks at pick level) and no containers (refstkres null).
int acedNEntSelP(const ACHAR* str, ads_name entres, ads_point ptres, int pickflag, ads_matrix xformres,
                 resbuf** refstkres);
int acedNEntSel(const ACHAR* str, ads_name entres, ads_point ptres, ads_point xformres[4], resbuf** refstkres);

// Writes to the command line (transcript) without waiting. RTNORM.
int acedPrompt(const ACHAR* str);
// Always 0: Esc reaches prompts, not long loops.
int acedUsrBrk();
