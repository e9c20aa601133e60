#ifndef TRELVANIX_COMMON_FIXED_ARRAY_H
#define TRELVANIX_COMMON_FIXED_ARRAY_H

namespace trelvanix
{

// An array of fixed length that is copied like a value; any kind of integer counts its elements, where std::array
// takes unsigned ones alone.
template <class Element, int count>
struct FixedArray {
    Element elements[count];

    template <class Index>
    constexpr Element& operator[](Index i)
    {
        return elements[i];
    }

    template <class Index>
    constexpr const Element& operator[](Index i) const
    {
        return elements[i];
    }

    constexpr Element* begin()
    {
        return elements;
    }

    constexpr const Element* begin() const
    {
        return elements;
    }

    constexpr const Element* end() const
    {
        return elements + count;
    }

    constexpr int Size() const
    {
        return count;
    }
};

} // namespace trelvanix

#endif
