PART=1
class Sweep:
    workers=1
    def __init__(self,*a): pass
    def names(self): return []
    def jobs(self): return []
    def run(self,job): return []
    def close(self): pass
