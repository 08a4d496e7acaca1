#include "driver/request/sg_file_names_3.h"
#include "foundation/except_3.h"
#include "library/groups/child_process.h"
#include "textout/console.h"

void sg_file_names_3::generate_in_child() {
    if (sg_file_exists()) return;
    console_stream() << "Generating " << sg_path() << '\n';
    if (!run_generation(*this)) (error_builder_3() << "Error running" << run_command()).fail();
}
