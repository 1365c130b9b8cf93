"""Running the tool, and what its output must look like."""
