"""The invented music that make_demo_library.py writes: names, sound, tags and pictures."""
