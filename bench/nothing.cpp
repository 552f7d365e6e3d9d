// A tool that does nothing.
int main()
{
    return 0;
}
