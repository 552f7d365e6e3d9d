#pragma once

class TQXManagedCompilerAction;

/// Makes the satellite assemblies of a project that has been compiled and puts each into the folder of its culture
/// beside the output. False: the log tells why.
[[nodiscard]] bool MakeSatellites(TQXManagedCompilerAction& Action);
