#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    (void)argc;
    (void)argv;
    std::fprintf(stderr, "usage: tallix-cli COMMAND ...\n");
    return 2;
}
