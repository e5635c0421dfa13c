// A program of one room, which does nothing: that it links is the test.
int main() { return 0; }
