#pragma once

#include "package/plugin/QXDotNetAction.h"
#include "package/sdktools/QXFreeFormAction.h"

#include <array>
#include <string>
#include <string_view>

/// Base of the actions that run the strong name tool.
class TSNBaseAction : public TQXDotNetAction
{
public:
    TSNBaseAction() { MinimumSDKVersion = "1.0"; }

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttSDK; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "sn.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& /*Builder*/) override { return true; }
};

/// Makes a key pair.
class TSNGenerateKeyPair final : public TSNBaseAction
{
public:
    TSNGenerateKeyPair();

    static std::string GetActionName() { return "Generate Key Pair"; }
    static int GetHelpTopicID() { return 2660; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetGenerateKeyPair.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string OutputFile;
};

/// Verifies the strong name of an assembly, or that it has none.
class TSNVerifyAssembly final : public TSNBaseAction
{
public:
    TSNVerifyAssembly();

    static std::string GetActionName() { return "Verify Assembly Strong Name"; }
    static int GetHelpTopicID() { return 2670; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetVerifyAssembly.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool InterpretResult(int ExitCode) override { return (ExitCode == 0) != FailIfValid; }
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string Assembly;
    bool Force = false;
    bool FailIfValid = false;
};

/// Puts a key pair into a key container.
class TSNInstallKeyPair final : public TSNBaseAction
{
public:
    TSNInstallKeyPair();

    static std::string GetActionName() { return "Install Key file"; }
    static int GetHelpTopicID() { return 2680; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetInstallKeyPair.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string KeyFile;
    std::string ContainerFile; ///< the name of the container
};

/// Where a public key comes from, and where it goes.
enum TSNExtractFromType { extractFromKeyFile, extractFromAssembly, extractFromContainer };
constexpr auto QXElements(TSNExtractFromType)
{
    return std::array<std::string_view, 3>{"extractFromKeyFile", "extractFromAssembly", "extractFromContainer"};
}
enum TSNExtractToType { extractToKeyFile, extractToCSV, extractToClipboard };
constexpr auto QXElements(TSNExtractToType)
{
    return std::array<std::string_view, 3>{"extractToKeyFile", "extractToCSV", "extractToClipboard"};
}

/// Extracts a public key. The tool knows some pairs of source and destination only.
class TSNExtractPublicKey final : public TSNBaseAction
{
public:
    TSNExtractPublicKey();

    static std::string GetActionName() { return "Extract Public Key"; }
    static int GetHelpTopicID() { return 2690; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetExtractPublicKey.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    void OnFailure(int ExitCode) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    TSNExtractFromType ExtractFromType = extractFromKeyFile;
    TSNExtractToType ExtractToType = extractToKeyFile;
    std::string FromKeyFile;
    std::string FromAssembly;
    std::string FromContainer;
    std::string ToKeyFile;
    std::string ToCSV;

private:
    [[nodiscard]] const std::string& Source() const;
    [[nodiscard]] bool AddDestination(ICommandLineBuilder& Builder) const;
};

/// Signs an assembly again.
class TSNResignAssembly final : public TSNBaseAction
{
public:
    TSNResignAssembly();

    static std::string GetActionName() { return "Re-sign Assembly"; }
    static int GetHelpTopicID() { return 2700; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetResignAssembly.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string Assembly;
    bool UseKeyFile = true;
    std::string KeyFile;
    std::string Container;
};

/// Runs the tool with whatever arguments the user writes.
class TSNGenericSN final : public TQXFreeFormAction<TSNBaseAction>
{
public:
    static std::string GetActionName() { return "Run SN.EXE"; }
    static int GetHelpTopicID() { return 2740; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetRunSN.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
};
