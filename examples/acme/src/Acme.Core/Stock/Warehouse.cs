using System;
using System.Collections;
using System.IO;
using System.Xml;

namespace Acme.Core.Stock
{
    /// <summary>All items, in the order in which they came.</summary>
    public class Warehouse
    {
        private readonly ArrayList items = new ArrayList();

        /// <summary>Reads items of the form &lt;item name="..." count="..."/&gt;.</summary>
        public static Warehouse Load(string xml)
        {
            Warehouse result = new Warehouse();
            XmlDocument document = new XmlDocument();
            document.Load(new StringReader(xml));
            foreach (XmlElement element in document.SelectNodes("/stock/item"))
                result.items.Add(new Item(element.GetAttribute("name"),
                    Int32.Parse(element.GetAttribute("count"))));
            return result;
        }

        /// <summary>The items.</summary>
        public Item[] Items
        {
            get { return (Item[]) items.ToArray(typeof(Item)); }
        }
    }
}
