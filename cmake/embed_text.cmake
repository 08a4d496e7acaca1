# Writes a source that holds a text file:
#
#     cmake -DNAME=catalogue_data -DHEADER=group/embedded_data.h -DINPUT=lomar5.txt
#           -DOUTPUT=catalogue_data.cpp -P embed_text.cmake
#
# The header declares the text.

file(READ "${INPUT}" text)
# Raw strings of a size that every compiler takes, joined by the compiler.
string(LENGTH "${text}" length)
set(pieces "")
set(begin 0)
while(begin LESS length)
    string(SUBSTRING "${text}" ${begin} 16000 piece)
    string(APPEND pieces "R\"~~~(${piece})~~~\"\n")
    math(EXPR begin "${begin} + 16000")
endwhile()
file(WRITE "${OUTPUT}"
"#include \"${HEADER}\"

#ifdef __GNUC__
#pragma GCC diagnostic ignored \"-Woverlength-strings\"
#endif

namespace lomar {

static constexpr char text[] =
${pieces};

const std::string_view ${NAME} = {text, sizeof text - 1};

}  // namespace lomar
")
