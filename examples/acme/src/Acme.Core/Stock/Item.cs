using System;

namespace Acme.Core.Stock
{
    /// <summary>One kind of thing on a shelf.</summary>
    public class Item
    {
        private readonly string name;
        private int count;

        /// <summary>Puts the first things on the shelf.</summary>
        public Item(string name, int count)
        {
            if (name == null || name.Length == 0)
                throw new ArgumentException("An item needs a name.", "name");
            this.name = name;
            this.count = count;
        }

        /// <summary>The name on the label.</summary>
        public string Name
        {
            get { return name; }
        }

        /// <summary>How many are there.</summary>
        public int Count
        {
            get { return count; }
        }

        /// <summary>Takes things away; false when there are too few.</summary>
        public bool Take(int wanted)
        {
            if (wanted > count)
                return false;
            count -= wanted;
            return true;
        }
    }
}
