using System;
using System.Reflection;

[assembly: CLSCompliant(true)]
[assembly: AssemblyTitle("Acme.Core")]
[assembly: AssemblyDescription("What Acme keeps in stock")]
[assembly: AssemblyVersion("1.5.0.0")]
[assembly: AssemblyKeyFile(@"..\..\Acme.snk")]
