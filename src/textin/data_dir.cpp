#include "textin/data_dir.h"

string_3& data_dir() {
    static string_3 prefix;
    return prefix;
}
