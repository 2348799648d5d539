// Nothing of its own: the headers that all test programs share are compiled with it.
