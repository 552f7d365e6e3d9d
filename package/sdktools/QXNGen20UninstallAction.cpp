#include "package/sdktools/QXNGen20UninstallAction.h"

TQXNGen20UninstallAction::TQXNGen20UninstallAction()
{
    PublishQueued();
    PublishVerbose();
}

void TQXNGen20UninstallAction::AddArguments(ICommandLineBuilder& Builder) const
{
    TQXNGen20AssemblyAction::AddArguments(Builder);
    AddQueueAndVerbose(Builder);
}
