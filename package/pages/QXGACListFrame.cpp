#include "package/pages/QXGACListFrame.h"

#include "package/sdktools/QXDotNetGACAction.h"

TGACListFrame::TGACListFrame()
{
    Bind(rbList, rbDelete, &TGACListAction::DeleteDownloadCache);
}

void TGACListFrame::ReadActionData(TCustomQXAction& Action)
{
    TFrame::ReadActionData(Action);
    Version.Read(static_cast<TQXDotNetAction&>(Action));
}

void TGACListFrame::WriteActionData(TCustomQXAction& Action)
{
    TFrame::WriteActionData(Action);
    Version.Write(static_cast<TQXDotNetAction&>(Action));
}
