// CGlobDimOptions: the module-wide option store. It holds the three parameter
// sets (linear, height, text), the general strings and integers, and the
// bindings of every parameter to its key in the INI files.
#pragma once

#include "host/gi/AcCmColor.h"
#include "host/mfc/afxcoll.h"
#include "host/win/WinTypes.h"
#include "options/ParamSet.h"
#include "options/ParamTable.h"

class CGlobDimOptions;

// Member-style views of two options, for code that reads the text background
// switch and colour by these names; both read and write the real storage.
class CWipeOutSwitch {
public:
    explicit CWipeOutSwitch(CGlobDimOptions& owner) : m_owner(owner) {}
    CWipeOutSwitch(const CWipeOutSwitch&) = delete;
    operator BOOL() const;  // general integer WipeOut is non-zero
    CWipeOutSwitch& operator=(BOOL bOn);

private:
    CGlobDimOptions& m_owner;
};
class CBackgroundRgb {
public:
    explicit CBackgroundRgb(CGlobDimOptions& owner) : m_owner(owner) {}
    CBackgroundRgb(const CBackgroundRgb&) = delete;
    operator DWORD() const;  // m_colorBackground as 0x00RRGGBB
    CBackgroundRgb& operator=(DWORD dwRgb);

private:
    CGlobDimOptions& m_owner;
};

class CGlobDimOptions {
public:
    // The arrays start at their table sizes, zeroed; LoadOptions fills them.
    CGlobDimOptions();
    virtual ~CGlobDimOptions();
    CGlobDimOptions(const CGlobDimOptions&) = delete;
    CGlobDimOptions& operator=(const CGlobDimOptions&) = delete;

    // --- loading and saving -------------------------------------------------
    // Fills every set, the general options and the maps from the INI files.
    // A key no file holds reads as its default. FALSE (and a trace line) if an
    // index went out of range, which leaves the load unfinished.
    BOOL LoadOptions();
    // Writes the set of the current mode; in mode 1, or any mode outside 2 to
    // 5, all three sets. FALSE if an index went out of range.
    BOOL SaveOptions();
    // Writes one value under the key of GetParamName: classes 5 and 6 into
    // "General Info", the others into prefix + "MainOptions" of each set meant
    // (in mode 1 modes 2, 3, 4 and 5 in turn). Refused (FALSE) while
    // m_bNoWrite is set, and for the values "<var>" and string 32897.
    BOOL SaveOption(int iClass, int iIndex, const CString& strValue);
    BOOL SaveOption(int iClass, int iIndex, int iValue);
    BOOL SaveOption(int iClass, int iIndex, double dValue);
    // The (section, key) pairs SaveOption writes for (class, index) in the
    // current mode, in writing order; returns their number.
    int GetSaveTargets(int iClass, int iIndex, CStringArray& arraySections, CStringArray& arrayKeys);

    // --- the current set ------------------------------------------------------
    // Reads take the height set in modes 3 and 4, the text set in mode 5 and
    // the linear set otherwise. Out of range: GetDouble prints
    // " !!!!GetDouble( %d ) size=%d " and gives 0, GetInt 0, GetString "".
    double GetDouble(int iIndex);
    int GetInt(int iIndex);
    CString GetString(int iIndex);
    // TRUE if stored. Refused while m_bNoWrite is set and for a negative index.
    // Mode 1 writes all three sets; the array grows as needed.
    BOOL SetDouble(int iIndex, double dValue);
    BOOL SetInt(int iIndex, int iValue);
    BOOL SetString(int iIndex, const CString& strValue);

    // The set a mode means (see SetOfMode); 0 or a negative mode: the current.
    CParamSet& GetSet(int iMode = 0);

    // General options; 0 or "" out of range.
    int GetOptInt(int iIndex) const;
    CString GetOptString(int iIndex) const;

    // Stores the text as general string 1. Its first number holds the flag
    // bits (bit 0 AutoPosIgnoreExt, general integer 12; bit 1 AutoPosMirror,
    // 13), the others are the locations in the order tried. Fields that are
    // not whole non-negative numbers are left out with a trace line.
    void SetAutoPosOrder(const CString& strText);

    // --- modes ------------------------------------------------------------------
    // A negative mode means the current one.
    BOOL IsSectionHeight(int iMode = -1) const;  // 3
    BOOL IsHeight(int iMode = -1) const;         // 3 or 4
    BOOL IsPlanHeight(int iMode = -1) const;     // 4
    BOOL IsText(int iMode = -1) const;           // 5

    // --- the vocabulary of the files ------------------------------------------
    // The key of (class, index) in a mode; mode 0 is the current mode. An
    // index without a name gives "Option<class>-<index>" and prints
    // "\n>>>>> <name> <<<<<" on the command line.
    CString GetParamName(int iClass, int iIndex, int iMode = 0);
    // Label and description of a key from DimParam.ini (mapParams). Without an
    // entry the label is the key itself and the description "".
    CString GetParamLabel(const CString& strKey) const;
    CString GetParamDescription(const CString& strKey) const;
    // TRUE if DimParam.ini sends the key to the current options file; else it
    // lives in the main INI file.
    BOOL IsInOptionsFile(const CString& strKey) const;
    // The file a key is read from and written to, by IsInOptionsFile.
    CString GetParamFile(const CString& strKey) const;

    // The "Scale2Layer" or "TextHeight2Color" map of a mode (4 counts as 3);
    // null for any other name.
    CMapStringToString* GetMap(int iMode, const CString& strName);

    // --- state, in the order the store has always kept it ---------------------
    int m_iMode = kModeLinear;
    BOOL m_bNoEditableParams = FALSE;  // "General Info" NoEditableParams reads 1
    // While set, the three setters and SaveOption do nothing: the panel shows
    // a picked entity's parameters rather than the defaults.
    BOOL m_bNoWrite = FALSE;
    // The drawing background, as RGB; white until the editor reports one.
    AcCmEntityColor m_colorBackground{255, 255, 255};
    CParamSet m_setLinear;  // mode 2
    CParamSet m_setHeight;  // modes 3 and 4
    CParamSet m_setText;    // mode 5
    // Locations tried by the automatic text position, from AutoPosLocationOrder.
    CUIntArray arrayAutoPosOrder;
    CStringArray arrayOptString;  // class 5
    CUIntArray arrayOptInt;       // class 6
    // Key to "<flag digit><label>;<description>", from DimParam.ini.
    CMapStringToString mapParams;
    // Per set, in the order linear, height, text.
    CMapStringToString mapTextHeight2Color[kSetCount];
    CMapStringToString mapScale2Layer[kSetCount];
    // Key DebugMsg: the trace writes only while this is on.
    BOOL m_bDebugMsg = FALSE;
    // Non-zero while a placement command runs.
    int m_iRunningCommand = 0;
    CString m_strCurOptionsFile;  // the options file in use
    CString m_strIniFile;         // the main INI file, Sorvane.ini

    // The general integer WipeOut and the background colour, under the names
    // the text primitive uses.
    CWipeOutSwitch m_bWipeOut{*this};
    CBackgroundRgb m_dwBackgroundColor{*this};

private:
    // One set of LoadOptions, with m_iMode set to the set's mode.
    void LoadSet(int iSet);
    void LoadGeneral();
    void SaveSet(int iSet);
    // The text of a parameter of the current mode, or its default while no
    // file holds the key.
    CString ReadParam(int iClass, int iIndex);
    int ReadParamInt(int iClass, int iIndex);
    double ReadParamDouble(int iClass, int iIndex);
    // A general string, written back with its default when it reads empty.
    CString ReadOptStringOrDefault(int iIndex);
    // One entry of an INI file: FALSE while no file holds it.
    BOOL ReadEntry(const CString& strFile, const CString& strSection, const CString& strKey, CString& strValue);
    // One entry into an INI file, through the cache.
    void WriteEntry(const CString& strFile, const CString& strSection, const CString& strKey, const CString& strValue);
};

// Made when the module starts and deleted when it unloads; null outside that.
extern CGlobDimOptions* pGlobDimOptions;
