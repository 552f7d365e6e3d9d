#pragma once

/// Registers the package's options objects and action classes with the host, at design time also their
/// pages and property editors. What goes wrong is told to the host. The package's one exported name.
extern "C"
#if defined(_WIN32)
    __declspec(dllexport)
#else
    __attribute__((visibility("default")))
#endif
        void QXRegister(bool DesignTime) noexcept;
