// A program that does nothing, with the libraries that the command line program has at its start.
int main() {}
