// The command line arrives in UTF-8.
#include "command.h"

int main(int argc, char** argv) {
    return hmitool::Main(std::vector<std::string>(argv + 1, argv + argc));
}
