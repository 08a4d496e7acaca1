#include <algorithm>
#include <vector>

#include "foundation/string_3.h"
#include "fuzzing.h"

namespace {

using model = std::vector<int>;

void make(int number, int& element) { element = number; }
void make(int number, string_3& element) {
    const auto length = static_cast<std::size_t>(number % 90);
    element = (std::string(length, 's') + std::to_string(number)).c_str();
}

template <typename List>
void expect_same(const List& list, const model& numbers) {
    if (list.n != static_cast<int>(numbers.size()) || list.n > list.n_max) __builtin_trap();
    for (int k = 0; k < list.n; ++k) {
        typename List::value_type element;
        make(numbers[static_cast<std::size_t>(k)], element);
        if (!element_equal(list[list.first() + k], element)) __builtin_trap();
    }
}

// Each two bytes are an operation, which a list and a std::vector both follow.
template <typename List>
void follow(const std::uint8_t* data, std::size_t size) {
    List list;
    model numbers;
    for (std::size_t i = 0; i + 1 < size && numbers.size() < 300; i += 2) {
        const int byte = data[i + 1];
        const auto place =
            static_cast<std::ptrdiff_t>(static_cast<std::size_t>(byte) % (numbers.size() + 1));
        const int index = list.first() + static_cast<int>(place);
        const bool inside = place < list.n;
        typename List::value_type value;
        make(byte, value);
        switch (data[i] % 12) {
            case 0:
                list.add(inside ? list[index] : value);
                numbers.push_back(inside ? numbers[static_cast<std::size_t>(place)] : byte);
                break;
            case 1:
                list.insert_at(value, index);
                numbers.insert(numbers.begin() + place, byte);
                break;
            case 2:
                if (!inside) break;
                list.remove_at(index);
                numbers.erase(numbers.begin() + place);
                break;
            case 3:
                list.append(list);
                numbers.reserve(2 * numbers.size());
                std::copy_n(numbers.begin(), numbers.size(), std::back_inserter(numbers));
                break;
            case 4:
                list.set_n(static_cast<int>(place));
                numbers.resize(static_cast<std::size_t>(place));
                break;
            case 5:
                list.fill(value);
                std::fill(numbers.begin(), numbers.end(), byte);
                break;
            case 6:
                list.set_max_n(list.n + byte, true);
                break;
            case 7:
                if constexpr (List::has_base) list.set_base(byte - 128);
                break;
            case 8: {
                List copy(list);
                copy.add(value);
                list.take(copy);
                numbers.push_back(byte);
                break;
            }
            case 9: {
                List other;
                other.assign(list);
                if (!other.equal(list) || other.less(list) || list.less(other)) __builtin_trap();
                list.assign(other);
                break;
            }
            case 10:
                list.new_n(byte % 20);
                numbers.assign(static_cast<std::size_t>(byte % 20), byte);
                list.fill(value);
                break;
            default: {
                const auto found = std::find(numbers.begin(), numbers.end(), byte);
                const int expected = found == numbers.end()
                                         ? not_found
                                         : list.first() + static_cast<int>(found - numbers.begin());
                if (list.find(value) != expected) __builtin_trap();
            }
        }
        expect_same(list, numbers);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    follow<list_0_3<int>>(data, size);
    follow<list_n1_3<int>>(data, size);
    follow<list_0_3<string_3>>(data, size);
    follow<list_n1_3<string_3>>(data, size);
    return 0;
}
