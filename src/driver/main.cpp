#include "driver/sg_driver_3.h"
#include "foundation/platform.h"

// The exit status is 1 on every road: a caller learns of a failure by the option -e.
int main(int argc, char** argv) {
    platform_prepare_output();
    sg_driver_3 driver;
    driver.run(argc, argv);
    return 1;
}
