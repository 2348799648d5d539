// Nothing of its own: shared headers are compiled with it.
