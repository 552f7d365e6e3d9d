using System.Reflection;

[assembly: AssemblyTitle("AcmeConsole")]
[assembly: AssemblyVersion("1.5.0.0")]
