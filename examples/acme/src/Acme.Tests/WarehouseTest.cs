using System;
using Acme.Core.Stock;
using NUnit.Framework;

namespace Acme.Tests
{
    [TestFixture]
    public class WarehouseTest
    {
        [Test]
        public void KeepsTheOrderOfTheItems()
        {
            Warehouse warehouse = Warehouse.Load("<stock><item name='b' count='2'/><item name='a' count='1'/></stock>");
            Assert.AreEqual(2, warehouse.Items.Length);
            Assert.AreEqual("b", warehouse.Items[0].Name);
            Assert.AreEqual(1, warehouse.Items[1].Count);
        }

        [Test]
        public void GivesNoMoreThanThereIs()
        {
            Item item = new Item("anvil", 3);
            Assert.IsFalse(item.Take(4));
            Assert.IsTrue(item.Take(3));
            Assert.AreEqual(0, item.Count);
        }

        [Test, ExpectedException(typeof(ArgumentException))]
        public void AsksForNames()
        {
            new Item("", 1);
        }
    }
}
