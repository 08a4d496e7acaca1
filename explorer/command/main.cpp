#include "command/program.h"
#include "command/system.h"

int main(int argc, char** argv) {
    lomar::system::prepare_streams();
    return lomar::run_program(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
