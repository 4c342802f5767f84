// Everything of the MFC layer in one include, as module code expects it.
#pragma once

#include "host/mfc/CException.h"
#include "host/mfc/CString.h"
#include "host/mfc/CArray.h"
#include "host/mfc/CList.h"
#include "host/mfc/CMap.h"
#include "host/mfc/afxcoll.h"
#include "host/mfc/CWaitCursor.h"
#include "host/win/wsprintf.h"

#if __has_include("host/mfc/CTime.h")
#include "host/mfc/CTime.h"
#endif
#if __has_include("host/mfc/CFile.h")
#include "host/mfc/CFile.h"
#endif
#if __has_include("host/mfc/AfxMessageBox.h")
#include "host/mfc/AfxMessageBox.h"
#endif
