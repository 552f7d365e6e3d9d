#include "package/sdktools/QXNGen20InstallAction.h"

#include "package/plugin/QXActionHelpers.h"

TQXNGen20InstallAction::TQXNGen20InstallAction()
{
    PublishQueued();
    Publish("QueuePriority", QueuePriority, "Priority for the service: 1 is the highest, 3 the lowest");
    PublishVerbose();
}

void TQXNGen20InstallAction::AddArguments(ICommandLineBuilder& Builder) const
{
    TQXNGen20AssemblyAction::AddArguments(Builder);
    if (Queued)
        Builder.AddArgument("/queue", std::to_string(QueuePriority), amPlain);
    AddFlags(Builder, {{Verbose, "/verbose"}});
}
