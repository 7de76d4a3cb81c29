#pragma once
#include <list>
#include <stdexcept>
#include <utility>

// An ordered list that only grows at its end. Appending to a full list raises the list's
// length error; it is the one exception the library lets through to its caller.
template <typename Entry>
class EntryList : public std::list<Entry> {
public:
    void Append(const Entry& entry) {
        if (this->size() >= this->max_size()) throw std::length_error("list<T> too long");
        this->push_back(entry);
    }
    void Append(Entry&& entry) {
        if (this->size() >= this->max_size()) throw std::length_error("list<T> too long");
        this->push_back(std::move(entry));
    }
};
