#include "package/sdktools/QXNGen20UpdateAction.h"

TQXNGen20UpdateAction::TQXNGen20UpdateAction()
{
    PublishQueued();
    PublishVerbose();
}

void TQXNGen20UpdateAction::AddArguments(ICommandLineBuilder& Builder) const
{
    AddQueueAndVerbose(Builder);
}
