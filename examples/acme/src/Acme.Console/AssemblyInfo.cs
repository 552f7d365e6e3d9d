using System.Reflection;

[assembly: AssemblyTitle("AcmeConsole")]
[assembly: AssemblyVersion("1.4.0.0")]
