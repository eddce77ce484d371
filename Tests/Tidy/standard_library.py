"""The names of the standard library, as far as a tree like this one uses them."""

# By the header that defines them. Some have two homes.
STANDARD = {
    "algorithm": """all_of any_of binary_search clamp copy copy_if copy_n count count_if equal fill
        fill_n find find_if find_if_not for_each includes is_permutation is_sorted lower_bound max
        max_element min min_element minmax minmax_element mismatch none_of nth_element partial_sort
        partition remove_if replace replace_if reverse rotate search shuffle sort stable_partition
        stable_sort transform unique upper_bound""",
    "array": "array to_array",
    "bit": "bit_cast countr_zero endian popcount",
    "charconv": "chars_format from_chars to_chars",
    "chrono": "chrono chrono_literals",
    "clocale": "setlocale",
    "cmath": """abs acos asin atan atan2 ceil cos exp floor fmod hypot isfinite isinf isnan llround
        log log10 log2 lround nan nearbyint nextafter pow remainder round sin sqrt tan trunc""",
    "compare": "partial_ordering strong_ordering weak_ordering",
    "coroutine": "coroutine_handle noop_coroutine suspend_always suspend_never",
    "csignal": "raise sig_atomic_t signal",
    "cstddef": "byte max_align_t nullptr_t ptrdiff_t",
    "cstdint": """int8_t int16_t int32_t int64_t intptr_t uint8_t uint16_t uint32_t uint64_t
        uintptr_t""",
    "cstdio": "FILE fclose fflush fgets fopen fprintf fputs printf puts remove rename snprintf",
    "cstdlib": "_Exit abort abs atexit atoi calloc exit free getenv malloc quick_exit realloc",
    "cstring": "memcmp memcpy memmove memset strchr strcmp strerror strlen strncmp strstr",
    "deque": "deque",
    "exception": """current_exception exception exception_ptr make_exception_ptr rethrow_exception
        set_terminate terminate uncaught_exceptions""",
    "functional": """bind_front equal_to function greater hash identity invoke less mem_fn minus
        multiplies not_fn plus ref reference_wrapper""",
    "initializer_list": "initializer_list",
    "iostream": "cerr cin clog cout",
    "iterator": "advance back_inserter distance inserter next prev reverse_iterator",
    "limits": "numeric_limits",
    "list": "list",
    "map": "map multimap",
    "memory": """addressof dynamic_pointer_cast enable_shared_from_this make_shared make_unique
        shared_ptr static_pointer_cast unique_ptr weak_ptr""",
    "new": "bad_alloc nothrow",
    "numbers": "numbers",
    "numeric": "accumulate gcd inner_product iota lcm midpoint partial_sum reduce",
    "optional": "bad_optional_access in_place make_optional nullopt nullopt_t optional",
    "ranges": "views",
    "ratio": "kilo mega micro milli nano ratio",
    "set": "multiset set",
    "source_location": "source_location",
    "span": "as_bytes span",
    "stdexcept": "invalid_argument length_error logic_error out_of_range range_error runtime_error",
    "stop_token": "nostopstate stop_callback stop_source stop_token",
    "string": "stod stoi stol string to_string u16string wstring",
    "string_view": "string_view u16string_view",
    "system_error": "errc error_category error_code generic_category system_category system_error",
    "thread": "this_thread thread",
    "tuple": "apply forward_as_tuple ignore make_tuple tie tuple tuple_cat tuple_size_v",
    "type_traits": """add_const_t common_type_t conditional_t decay_t enable_if_t false_type
        invoke_result_t is_base_of_v is_const_v is_constant_evaluated is_convertible_v is_enum_v
        is_invocable_v is_same_v is_void_v remove_cv_t remove_cvref_t remove_reference_t true_type
        underlying_type_t""",
    "typeinfo": "type_info",
    "unordered_map": "unordered_map",
    "unordered_set": "unordered_set",
    "utility": """as_const cmp_equal cmp_greater cmp_less declval exchange forward in_place
        in_place_index in_place_index_t in_place_t in_place_type in_place_type_t index_sequence
        make_index_sequence make_pair move pair swap to_underlying""",
    "variant": """bad_variant_access get_if holds_alternative in_place_index in_place_index_t
        in_place_type in_place_type_t monostate variant variant_alternative_t variant_size_v
        visit""",
    "vector": "vector",
}
# Each container brings these, and any header brings size_t.
WITH_ANY_CONTAINER = {"begin", "cbegin", "cend", "data", "empty", "end", "erase", "erase_if", "get",
                      "getline", "rbegin", "rend", "size", "size_t", "ssize"}
# What else shows that a header is used.
SIGNS = {
    "array": r"\bstd::(?:get|size|tuple_size)\b",
    "cmath": r"\bM_\w+",
    "compare": "<=>",
    "csignal": r"\bSIG[A-Z]\w+|\bsig\w+\(",
    "cstddef": r"\bsize_t\b",
    "cstdio": r"\bstd(?:in|out|err)\b",
    "cstdlib": r"\bEXIT_\w+",
    "iterator": r"\bstd::s?size\b",
    "new": r"\bnew \(",
    "tuple": r"\bstd::get\b",
}
C_HEADERS = {"clocale", "cmath", "csignal", "cstddef", "cstdint", "cstdio", "cstdlib", "cstring"}

HOMES = {}
for _header, _names in STANDARD.items():
    for _name in _names.split():
        HOMES.setdefault(_name, []).append(f"<{_header}>")


def pattern_of(header):
    """Finds a use of the header; what C has as well is also used without its namespace."""
    prefix = r"(?:std::)?" if header in C_HEADERS else r"std::(?:ranges::)?"
    names = "|".join(STANDARD[header].split())
    return rf"\b{prefix}(?:{names})\b|{SIGNS.get(header, '$^')}"
