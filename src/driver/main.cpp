#include "driver/sg_driver_3.h"
#include "foundation/platform.h"

// Success and failure both end with status 1; scripts name a file with -e and look for it.
int main(int argc, char** argv) {
    platform_prepare_output();
    sg_driver_3 driver;
    driver.run(argc, argv);
    return 1;
}
