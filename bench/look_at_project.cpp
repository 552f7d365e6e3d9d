// The yardstick for loading a project: parses the same XML and looks whether each of its files is there.
#include <libxml/parser.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace
{
struct TLook
{
    std::string Folder;
    int Found = 0;
    int Missing = 0;

    void At(const xmlNode* Node)
    {
        for (; Node; Node = Node->next)
        {
            if (xmlChar* Value = xmlGetProp(Node, BAD_CAST "RelPath"))
            {
                std::string Path = Folder + reinterpret_cast<const char*>(Value);
                xmlFree(Value);
                std::replace(Path.begin(), Path.end(), '\\', '/');
                struct stat Status = {};
                ++(stat(Path.c_str(), &Status) == 0 ? Found : Missing);
            }
            At(Node->children);
        }
    }
};
} // namespace

int main(int Count, char** Arguments)
{
    const std::string File = Count == 2 ? Arguments[1] : "";
    xmlDoc* Document = xmlReadFile(File.c_str(), nullptr, XML_PARSE_NONET);
    if (!Document)
        return 2;
    TLook Look{File.substr(0, File.rfind('/') + 1)};
    Look.At(xmlDocGetRootElement(Document));
    xmlFreeDoc(Document);
    std::printf("%d files, %d missing\n", Look.Found, Look.Missing);
    return Look.Missing == 0 && Look.Found > 0 ? 0 : 1;
}
