"""Draws the pictures of the resources with the standard library alone, and the same bytes everywhere."""
