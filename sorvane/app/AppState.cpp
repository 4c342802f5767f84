// The module-wide state of the frame.
#include "app/App.h"

CDlgMain* dlgMyApp = nullptr;
int bUnloaded = 0;
AppEventCatcher* appEventCatcher = nullptr;
HINSTANCE hLanguageResource = nullptr;
CString strLanguageFile;
HINSTANCE hDllInstance = nullptr;
AcDbObjectId popupObjectId;
int bMessageFilterOn = 0;
short bMatchPropAdded = 0;
SVdimMatchProp* pMatchProp = nullptr;
