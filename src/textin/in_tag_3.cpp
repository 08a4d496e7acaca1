#include "textin/in_tag_3.h"

in_tag_3::in_tag_3() {
    static int counter = 0;
    constexpr int largest = 2147483637;
    int next = counter + 1;
    if (next > largest) next = 1;
    if (next < 1) next = largest;
    counter = next;
    tag_ = next;
}
