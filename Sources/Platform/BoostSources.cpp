// The compiled parts of Boost, from its headers; built only where its libraries cannot be linked.

#include <boost/url/src.hpp>
