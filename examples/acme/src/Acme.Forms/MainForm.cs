using System;
using System.IO;
using System.Reflection;
using System.Resources;
using System.Windows.Forms;
using Acme.Core.Stock;

namespace Acme.Forms
{
    public class MainForm : Form
    {
        private Button buttonClose;

        public MainForm()
        {
            ResourceManager resources = new ResourceManager(typeof(MainForm));
            buttonClose = new Button();
            buttonClose.Text = resources.GetString("buttonClose.Text");
            buttonClose.Click += new EventHandler(OnClose);
            Controls.Add(buttonClose);
            Text = resources.GetString("$this.Text");
        }

        private void OnClose(object sender, EventArgs e)
        {
            Close();
        }

        /// Shows the window, or with /check what was embedded: a build machine has no screen.
        [STAThread]
        public static int Main(string[] arguments)
        {
            if (arguments.Length == 0)
            {
                Application.Run(new MainForm());
                return 0;
            }
            Assembly assembly = Assembly.GetExecutingAssembly();
            string[] names = assembly.GetManifestResourceNames();
            Array.Sort(names, StringComparer.Ordinal);
            foreach (string name in names)
                Console.WriteLine(name);
            Console.WriteLine(new ResourceManager(typeof(MainForm)).GetString("$this.Text"));
            Console.WriteLine(new ResourceManager("Acme.Forms.Messages", assembly).GetString("Welcome"));
            Console.WriteLine(new Item("anvil", 3).Name);
            return 0;
        }
    }
}
