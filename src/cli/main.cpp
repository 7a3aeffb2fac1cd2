#include <cstdio>

int main() {
    std::fputs("rakeyard-cli: no command is available yet\n", stderr);
    return 2;
}
