#pragma once

#include "driver/request/arg_store_3.h"
#include "driver/request/sg_file_names_3.h"
#include "symmetry/sg_decoder_3.h"

/// One run of the tool.
class sg_driver_3 {
public:
    /// Carries out the whole run. A failure doesn't leave it: its message is written to the
    /// console, and the marker file is created if one was asked for.
    void run(int argc, const char* const* argv);

    /// Makes the .sg file of `group`. Its operators can be found in `operators` afterwards. After a
    /// failure the file may be there, unfinished.
    void generate_sg(sg_file_names_3& group, sg_decoder_3& operators);

    /// Generates the group of a second symbol, in the directory `sg`, and writes " \nEqual" or
    /// " \nNOT Equal" on the console.
    void compare_groups(const char* symbol);

private:
    void run_modes();
    void report_failure(const char* message);

    sg_decoder_3 decoder;
    sg_file_names_3 names;
    arg_store_3 args;
};
