#pragma once

/// One function for each alternative of a variant, for std::visit: an alternative without one does not compile.
template <typename... T> struct TQXOverloads : T...
{
    using T::operator()...;
};
template <typename... T> TQXOverloads(T...) -> TQXOverloads<T...>;
