"""Running the tool over many generated files and comparing what it prints with the references."""
