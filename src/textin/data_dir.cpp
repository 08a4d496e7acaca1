#include "textin/data_dir.h"

string_3& data_dir() {
    static string_3 prefix;
    return prefix;
}

string_3 data_path(const char* name) {
    string_3 path(data_dir());
    path.append(name);
    return path;
}
