// The compiled parts of Boost.JSON, from its headers; built only where its library cannot be
// linked.

#include <boost/json/src.hpp>
