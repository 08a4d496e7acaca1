"""The parts of make_catalogue.py."""
