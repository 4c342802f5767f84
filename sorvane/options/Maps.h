// What a drawing scale and a text height imply: the layer and colour of a
// scale (Scale2Layer) and the colour of a text height (TextHeight2Color).
#pragma once

#include "host/mfc/CString.h"
#include "host/mfc/afxcoll.h"
#include "host/win/WinTypes.h"

// Loads both maps of modes 2, 5 and 3 from the options file; a mode whose
// lists are missing there gets its defaults written first.
void LoadMaps();
// The layer of the scale in the mode's map, else the layer of the unknown
// scale's row; "" without either. Mode 4 counts as 3.
CString GetLayerOfScale(int iMode, const CString& strScale);
// TRUE if the current mode's map names the layer (any case).
BOOL IsSorvaneLayer(const CString& strLayer);
// The colour of a layer of the current mode's map (exact case), else of the
// list Layer2DefaultColor; 7 when neither knows it.
int GetLayerColor(const CString& strLayer);
// The colour for a text height in the map of iMode (negative: the current
// mode); 0 asks for the TrueType row, a negative height means the current
// text height. 0 if none.
int GetColorOfTextHeight(double dHeight, int iMode = -1);
// Puts the value into the list if missing and returns its index there.
int SelectString(CStringArray& arrayList, const CString& strValue);
