using System;
using System.Configuration;
using Acme.Core.Stock;

namespace Acme.Console
{
    public class Program
    {
        public static int Main()
        {
            System.Console.WriteLine("{0}:", ConfigurationSettings.AppSettings["Greeting"]);
            Warehouse warehouse = Warehouse.Load(
                "<stock><item name='anvil' count='3'/><item name='rocket skates' count='12'/></stock>");
            foreach (Item item in warehouse.Items)
                System.Console.WriteLine("{0,4} {1}", item.Count, item.Name);
            return 0;
        }
    }
}
