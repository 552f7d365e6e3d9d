#include "package/pages/QXGACListFrame.h"

#include "package/sdktools/QXDotNetGACAction.h"

TGACListFrame::TGACListFrame()
{
    Bind(rbList, rbDelete, &TGACListAction::DeleteDownloadCache);
}
